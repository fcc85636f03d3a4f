// The window of the mail settings: four pages, and below them the status of the sending and the
// buttons.
#include <QFormLayout>

#include "qt/controls/buttons.h"
#include "qt/controls/check_list.h"
#include "qt/controls/entries.h"
#include "qt/controls/tab_strip.h"
#include "qt/surface/field.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

constexpr int portWidth = 70;

QFormLayout* makeForm() {
    auto* fields = new QFormLayout;
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return fields;
}

// A page of its frame, with the margins of a page.
QWidget* pageOf(Frame& frame, QLayout* content) {
    content->setContentsMargins(2 * gap, 2 * gap, 2 * gap, 2 * gap);
    auto* page = new QWidget;
    page->setLayout(content);
    page->setObjectName(fieldName(frame));
    return page;
}

QWidget* makeContentPage(FrmNotify& form, UserHand& hand) {
    auto* fields = makeForm();
    fields->addRow(QStringLiteral("Text file"),
                   row({makeLineEdit(form.txtCustomContent, hand),
                        makeIconButton(form.cmdNotOpenFile, Glyph::browse, hand)}));
    fields->addRow(QStringLiteral("Number of events"),
                   row({makeLineEdit(form.txtCustEvtAmt, hand), makeButton(form.cmdNT, hand)}));
    auto* content = column({});
    content->addWidget(new CheckList(form.lstNotContent, hand), 1);
    content->addLayout(fields);
    return pageOf(form.frE[0], content);
}

QWidget* makeMessagePage(FrmNotify& form, UserHand& hand) {
    return pageOf(form.frE[1], column({makeTextEdit(form.txtCustMsg, hand)}));
}

QLayout* makeConnectionFields(FrmNotify& form, UserHand& hand) {
    auto* port = makeLineEdit(form.txtMailPort, hand);
    port->setMaximumWidth(portWidth);
    auto* encryption = makeChoice(form.cboEncryption, hand);
    return row({port, wordFor(QStringLiteral("Encryption:"), encryption), encryption, nullptr});
}

QComboBox* makeRecipients(FrmNotify& form, UserHand& hand) {
    auto* recipients = makeComboBox(form.cboNotEmail, hand);
    recipients->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return recipients;
}

QWidget* makeAccountPage(FrmNotify& form, UserHand& hand) {
    auto* fields = makeForm();
    fields->addRow(QStringLiteral("Mail Server:"), makeLineEdit(form.txtMailServer, hand));
    fields->addRow(QStringLiteral("Mail Server Port:"), makeConnectionFields(form, hand));
    fields->addRow(QStringLiteral("Your Email:"), makeLineEdit(form.txtYourEmail, hand));
    fields->addRow(QStringLiteral("User Name:"), makeLineEdit(form.txtUser, hand));
    fields->addRow(QStringLiteral("Password:"), makeLineEdit(form.txtPass, hand));
    fields->addRow(QStringLiteral("Mail  From Display:"),
                   makeLineEdit(form.txtMailFromDisplayName, hand));
    fields->addRow(QStringLiteral("Subject:"), makeLineEdit(form.txtMailSubj, hand));
    fields->addRow(QStringLiteral("Email(s) to send to:"), makeRecipients(form, hand));
    fields->addRow(QString(), row({makeButton(form.cmdAdd, hand), makeButton(form.cmdRemove, hand),
                                   makeButton(form.cmdClear, hand), nullptr}));
    fields->addRow(makeCheckBox(form.chkIsHTML, hand));
    return pageOf(form.frE[2], fields);
}

QWidget* makeTimePage(FrmNotify& form, UserHand& hand) {
    auto* times = column({new CheckList(form.lstNotTime, hand)});
    auto* fields = makeForm();
    fields->addRow(QStringLiteral("Custom Time (Send Daily)"),
                   makeTimeEdit(form.DTPicker1, QStringLiteral("HH:mm"), hand));
    fields->addRow(QStringLiteral("(Send) Custom Time Interval"),
                   makeTimeEdit(form.DTPicker2, QStringLiteral("HH:mm"), hand));
    auto* proxy = makeForm();
    proxy->addRow(makeCheckBox(form.chkProxy, hand));
    proxy->addRow(QStringLiteral("Server:"), makeLineEdit(form.txtProxy, hand));
    proxy->addRow(QStringLiteral("Port:"), makeLineEdit(form.txtPort, hand));
    auto* content = column({group(QStringLiteral("Automatic Send Time Option(s)"), times)});
    content->addLayout(fields);
    content->addLayout(proxy);
    content->addStretch(1);
    return pageOf(form.frE[3], content);
}

// It is only read, and can be selected for copying.
QLineEdit* makeStatus(FrmNotify& form, UserHand& hand) {
    QLineEdit* status = makeLineEdit(form.StatusTxt, hand);
    status->setReadOnly(true);
    status->setFrame(false);
    status->setStyleSheet(QStringLiteral("background: transparent"));
    return status;
}

}  // namespace

// The window's frame has the cross that the form has a button for.
QWidget* makeNotifyWindow(FrmNotify& form, UserHand& hand) {
    auto* content = column({makeTabs(form.TabStrip1,
                                     {makeContentPage(form, hand), makeMessagePage(form, hand),
                                      makeAccountPage(form, hand), makeTimePage(form, hand)},
                                     hand),
                            makeStatus(form, hand)});
    content->addLayout(
        row({makeButton(form.Command1, hand), nullptr, makeButton(form.cmdApply, hand),
             makeButton(form.cmdOK, hand), makeButton(form.cmdCancel, hand)}));
    return dialog(form, content, hand, {.keepsPlace = true});
}

}  // namespace velmora::qt
