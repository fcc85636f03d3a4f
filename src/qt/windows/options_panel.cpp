#include <QGridLayout>

#include "qt/controls/buttons.h"
#include "qt/controls/check_list.h"
#include "qt/controls/entries.h"
#include "qt/windows/layouts.h"
#include "qt/windows/panels.h"

namespace velmora::qt {

namespace {

constexpr int roomForTwoOptionColumns = 640;

QWidget* makeInterval(Form1& form, UserHand& hand) {
    auto* interval = makeTimeEdit(form.DTPInterval, QStringLiteral("HH:mm:ss"), hand);
    interval->setButtonSymbols(QAbstractSpinBox::NoButtons);
    auto* seconds = makeLineEdit(form.txtTime, hand);
    seconds->setMaximumWidth(70);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(gap);
    grid->addWidget(wordFor(QStringLiteral("Time Interval"), interval), 0, 0);
    grid->addLayout(row({interval, makeUpDown(form.UpDown2, hand), nullptr}), 0, 1);
    grid->addWidget(wordFor(QStringLiteral("Time Interval (sec)"), seconds), 1, 0);
    grid->addLayout(row({seconds, makeUpDown(form.UpDown1, hand), nullptr}), 1, 1);
    return group(QStringLiteral("Check Interval"), grid);
}

QWidget* makeCustomTime(Form1& form, UserHand& hand) {
    auto* start = makeTimeEdit(form.DTTime1[0], QStringLiteral("HH:mm"), hand);
    auto* end = makeTimeEdit(form.DTTime1[1], QStringLiteral("HH:mm"), hand);
    auto* content = column({makeCheckBox(form.chkCustTime, hand)});
    content->addLayout(row({wordFor(QStringLiteral("Start Time"), start), start,
                            wordFor(QStringLiteral("End Time"), end), end, nullptr}));
    return group(QStringLiteral("Custom Watch Time"), content);
}

}  // namespace

QWidget* makeOptionsPanel(Form1& form, UserHand& hand) {
    auto* actionList = column({new CheckList(form.lstAct, hand), makeCheckBox(form.chkSeq, hand)});
    actionList->addStretch(1);
    auto* actions = group(QStringLiteral("Action on Space Shortage"), actionList);
    auto* others = column({group(QStringLiteral("Alert on Selected Events"),
                                 column({new CheckList(form.lstEvt, hand)})),
                           makeInterval(form, hand), makeCustomTime(form, hand)});
    others->addStretch(1);
    return scrolled(new TwoColumns(actions, around(others), roomForTwoOptionColumns));
}

}  // namespace velmora::qt
