// The history of free space: the line of one path, with its trigger and an estimate.
#include "qt/controls/buttons.h"
#include "qt/controls/entries.h"
#include "qt/controls/line_chart_widget.h"
#include "qt/controls/printed_lines.h"
#include "qt/print/print_button.h"
#include "qt/surface/refresher.h"
#include "qt/surface/text.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

Printout historyPrintout(FrmHistory& form, const Printing& printing) {
    // Chosen once more, the points are as old as they say.
    if (form.cboPath.ListIndex() >= 0) form.cboPath.userChoose(form.cboPath.ListIndex());
    const std::vector<LineChart::Line>& lines = form.chtHistory.lines();
    const std::string& what = lines.size() == 1 ? lines.front().name : form.cboPath.Text();
    return {.words = {.title = QStringLiteral("Free Space History"),
                      .lines = {shown(what), shown(form.lblEstimate.Caption())}},
            .picture = printedLines(form.chtHistory, printing.regional()),
            .table = summaryOf(form.chtHistory, printing.now(), printing.regional())};
}

QPushButton* makePrint(FrmHistory& form, UserHand& hand, Printing& printing) {
    QPushButton* print = makePrintButton(
        printing, hand, [&form, &printing] { return historyPrintout(form, printing); });
    print->setObjectName(QStringLiteral("chtHistory.Print"));
    follow(form.chtHistory.Changed, print,
           [print, &form] { print->setEnabled(!form.chtHistory.lines().empty()); });
    return print;
}

}  // namespace

QWidget* makeHistoryWindow(FrmHistory& form, UserHand& hand, Printing& printing) {
    auto* content = column({});
    content->addLayout(
        row({makeChoice(form.cboPath, hand), nullptr, sectionHeading(form.lblEstimate)}));
    content->addWidget(new LineChartWidget(form.chtHistory, hand.regional()), 1);
    QPushButton* close = makeButton(form.cmdClose, hand);
    close->setDefault(true);
    content->addLayout(
        row({nullptr, makePrint(form, hand, printing), makeButton(form.cmdExport, hand), close}));
    return dialog(form, content, hand, {.sized = true});
}

}  // namespace velmora::qt
