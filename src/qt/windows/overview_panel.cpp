#include <QGridLayout>

#include "qt/controls/buttons.h"
#include "qt/windows/layouts.h"
#include "qt/windows/panels.h"

namespace velmora::qt {

namespace {

constexpr double figureScale = 1.5;

// One figure of the watch: its caption, and below it the value in large letters.
QWidget* makeFigure(const QString& words, Label& field) {
    auto* caption = new QLabel(words);
    caption->setWordWrap(true);
    caption->setForegroundRole(QPalette::Text);
    auto* value = makeCaption(field);
    value->setForegroundRole(QPalette::Text);
    QFont font = value->font();
    font.setPointSizeF(font.pointSizeF() * figureScale);
    font.setBold(true);
    value->setFont(font);
    caption->setBuddy(value);
    auto* card = new QFrame;
    card->setFrameShape(QFrame::StyledPanel);
    card->setAutoFillBackground(true);
    card->setBackgroundRole(QPalette::Base);
    auto* layout = column({caption, value});
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(2);
    layout->addStretch(1);
    card->setLayout(layout);
    return card;
}

}  // namespace

QWidget* makeOverviewPanel(Form1& form, UserHand& hand) {
    struct Figure {
        const char* words;
        Label& field;
    };
    const Figure figures[] = {
        {"Program started", form.lblAppStart},
        {"Space Change Rate in (KB/sec.) :", form.lblSpaceChangeRate},
        {"drive/path(s) on monitoring", form.lblDriveOnMonitor},
        {"Times the program have monitored", form.lblTimesMonitor},
        {"Alerts the program have raised:", form.lblAlertsRaised},
        {"High-rated alerts", form.lblHighRatedAlerts},
    };
    auto* grid = new QGridLayout;
    grid->setSpacing(gap + 2);
    grid->setContentsMargins(0, 0, 0, 0);
    int place = 0;
    for (const Figure& figure : figures) {
        grid->addWidget(makeFigure(QString::fromLatin1(figure.words), figure.field), place / 2,
                        place % 2);
        ++place;
    }
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    auto* page = column({});
    page->addLayout(grid);
    page->addStretch(1);
    page->addLayout(row({makeButton(form.cmdAdv, hand), nullptr, makeLink(form.lblAbout, hand)}));
    return scrolled(around(page));
}

}  // namespace velmora::qt
