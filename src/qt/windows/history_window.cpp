// The history of free space: the line of one path, with its trigger and an estimate.
#include "qt/controls/buttons.h"
#include "qt/controls/entries.h"
#include "qt/controls/line_chart_widget.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

QWidget* makeHistoryWindow(FrmHistory& form, UserHand& hand) {
    auto* content = column({});
    content->addLayout(
        row({makeChoice(form.cboPath, hand), nullptr, sectionHeading(form.lblEstimate)}));
    content->addWidget(new LineChartWidget(form.chtHistory, hand.regional()), 1);
    QPushButton* close = makeButton(form.cmdClose, hand);
    close->setDefault(true);
    content->addLayout(row({nullptr, makeButton(form.cmdExport, hand), close}));
    return dialog(form, content, hand, {.sized = true});
}

}  // namespace velmora::qt
