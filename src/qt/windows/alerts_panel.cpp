#include <QSplitter>

#include "qt/controls/buttons.h"
#include "qt/controls/elided_label.h"
#include "qt/controls/entries.h"
#include "qt/controls/journal_view.h"
#include "qt/controls/label_button.h"
#include "qt/controls/list_view_widget.h"
#include "qt/controls/one_stop.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"
#include "qt/windows/layouts.h"
#include "qt/windows/panels.h"

namespace velmora::qt {

namespace {

constexpr int alertColumn = 2;

QWidget* makeAlertList(Form1& form, UserHand& hand) {
    auto* list = new ListViewWidget(
        form.LVAlert, [](const std::string&) { return QIcon(); },
        {.stretchedColumn = alertColumn,
         .preferred = {300, 120},
         .emptyWords = QStringLiteral("No alerts")},
        hand);
    list->setTextElideMode(Qt::ElideRight);
    return list;
}

QWidget* makeLogPath(Form1& form, const UserHand& hand) {
    auto* path = new ElidedLabel(nullptr, Qt::ElideMiddle);
    bindField(path, form.lblLog, [path, &form, &hand] {
        path->setText(shown(hand.hostPathOf(form.lblLog.Caption())));
    });
    return path;
}

}  // namespace

QWidget* makeAlertsPanel(Form1& form, UserHand& hand) {
    auto* limit = makeLineEdit(form.txtAmt, hand);
    limit->setMaximumWidth(56);
    auto* buttons = row({});
    std::vector<QWidget*> stops;
    for (Label& label : form.lblAl) {
        stops.push_back(new LabelButton(label, hand, LabelButton::Shape::button));
        buttons->addWidget(stops.back());
    }
    new OneStop(stops.front(), stops);
    buttons->addStretch(1);
    for (QWidget* widget : std::initializer_list<QWidget*>{makeCaption(form.lblE), limit,
                                                           makeUpDown(form.UpDown3, hand)}) {
        buttons->addWidget(widget);
    }
    auto* lists = new QSplitter(Qt::Vertical);
    lists->setChildrenCollapsible(false);
    lists->addWidget(makeAlertList(form, hand));
    auto* journal =
        group(QStringLiteral("Current Alerts"), column({new JournalView(form.txtAlert)}));
    lists->addWidget(journal);
    // The list takes the room of a journal that isn't shown.
    follow(form.txtAlert.Changed, journal,
           [journal, &form] { journal->setVisible(form.txtAlert.Visible()); });
    lists->setStretchFactor(0, 3);
    lists->setStretchFactor(1, 2);
    auto* page = column({});
    page->addWidget(lists, 1);
    page->addLayout(buttons);
    page->addWidget(makeLogPath(form, hand));
    return around(page);
}

}  // namespace velmora::qt
