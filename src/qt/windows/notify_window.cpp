#include <QFormLayout>
#include <QTabWidget>

#include "qt/controls/buttons.h"
#include "qt/controls/check_list.h"
#include "qt/controls/entries.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

QWidget* makeContentPage(FrmNotify& form, UserHand& hand) {
    auto* fields = new QFormLayout;
    fields->addRow(QStringLiteral("Text file"), makeLineEdit(form.txtCustomContent, hand));
    fields->addRow(QStringLiteral("Number of events"), makeLineEdit(form.txtCustEvtAmt, hand));
    auto* page = column({});
    page->addWidget(new CheckList(form.lstNotContent, hand), 1);
    page->addLayout(fields);
    return around(page);
}

QWidget* makeMessagePage(FrmNotify& form, UserHand& hand) {
    auto* page = column({makeLineEdit(form.txtCustMsg, hand)});
    page->addStretch(1);
    return around(page);
}

QWidget* makeAccountPage(FrmNotify& form, UserHand& hand) {
    auto* fields = new QFormLayout;
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    fields->addRow(QStringLiteral("Mail Server:"), makeLineEdit(form.txtMailServer, hand));
    fields->addRow(QStringLiteral("Mail Server Port:"), makeLineEdit(form.txtMailPort, hand));
    fields->addRow(QStringLiteral("Your Email:"), makeLineEdit(form.txtYourEmail, hand));
    fields->addRow(QStringLiteral("User Name:"), makeLineEdit(form.txtUser, hand));
    auto* password = makeLineEdit(form.txtPass, hand);
    password->setEchoMode(QLineEdit::Password);
    fields->addRow(QStringLiteral("Password:"), password);
    fields->addRow(QStringLiteral("Mail  From Display:"),
                   makeLineEdit(form.txtMailFromDisplayName, hand));
    fields->addRow(QStringLiteral("Subject:"), makeLineEdit(form.txtMailSubj, hand));
    fields->addRow(QStringLiteral("Email(s) to send to:"), makeComboBox(form.cboNotEmail, hand));
    fields->addRow(makeCheckBox(form.chkIsHTML, hand));
    return around(fields);
}

QWidget* makeTimePage(FrmNotify& form, UserHand& hand) {
    auto* times = column({new CheckList(form.lstNotTime, hand)});
    auto* fields = new QFormLayout;
    fields->addRow(QStringLiteral("Custom Time (Send Daily)"),
                   makeTimeEdit(form.DTPicker1, QStringLiteral("HH:mm"), hand));
    fields->addRow(QStringLiteral("(Send) Custom Time Interval"),
                   makeTimeEdit(form.DTPicker2, QStringLiteral("HH:mm"), hand));
    auto* proxy = new QFormLayout;
    proxy->addRow(makeCheckBox(form.chkProxy, hand));
    proxy->addRow(QStringLiteral("Server:"), makeLineEdit(form.txtProxy, hand));
    proxy->addRow(QStringLiteral("Port:"), makeLineEdit(form.txtPort, hand));
    auto* page = column({group(QStringLiteral("Automatic Send Time Option(s)"), times)});
    page->addLayout(fields);
    page->addLayout(proxy);
    page->addStretch(1);
    return around(page);
}

}  // namespace

QWidget* makeNotifyWindow(FrmNotify& form, UserHand& hand) {
    auto* pages = new QTabWidget;
    pages->setObjectName(QStringLiteral("TabStrip1"));
    pages->addTab(makeContentPage(form, hand), QStringLiteral("Notify Content:"));
    pages->addTab(makeMessagePage(form, hand), QStringLiteral("Custom Messeage"));
    pages->addTab(makeAccountPage(form, hand), QStringLiteral("Email Acct. Info."));
    pages->addTab(makeTimePage(form, hand), QStringLiteral("Send Option(s):"));
    for (int i = 0; i < pages->count(); ++i) {
        pages->widget(i)->layout()->setContentsMargins(2 * gap, 2 * gap, 2 * gap, 2 * gap);
    }
    pages->setUsesScrollButtons(false);
    auto* content = column({pages});
    return dialog(form, content, hand);
}

}  // namespace velmora::qt
