// The drive information dialog: two charts of the watch list, the boot sector of a volume, the
// attributes of a drive. One of them is visible at a time.
#include <QGridLayout>
#include <QHeaderView>
#include <QScrollBar>

#include "qt/controls/buttons.h"
#include "qt/controls/chart_view.h"
#include "qt/controls/entries.h"
#include "qt/controls/list_view_widget.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

constexpr int attributeGap = 24;  // between captions and values, in pixels

// A panel without a frame of its own: the choice above it is its heading.
QWidget* panelOf(Frame& frame, QLayout* content) {
    QWidget* panel = around(content);
    bindField(panel, frame, [panel, &frame] { panel->setAccessibleName(shown(frame.Caption())); });
    return panel;
}

QLabel* frameHeading(Frame& frame) {
    auto* label = new QLabel(shown(frame.Caption()));
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

// As wide as a number of letters, with its frame and what else `beside` takes.
void setLetters(QPlainTextEdit* view, int letters, int beside) {
    const double text = view->fontMetrics().averageCharWidth() * letters;
    view->setFixedWidth(static_cast<int>(text + 2 * view->document()->documentMargin()) +
                        2 * view->frameWidth() + beside + gap);
}

// Both show the same lines: they scroll together, by one scroll bar.
QLayout* makeDump(DlgDriveInfo& form) {
    constexpr int lettersOfBytes = 23;
    constexpr int lettersOfCharacters = 8;
    QPlainTextEdit* bytes = makeTextView(form.txtBytes);
    QPlainTextEdit* characters = makeTextView(form.txtChar);
    bytes->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (QPlainTextEdit* view : {bytes, characters}) {
        view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    setLetters(bytes, lettersOfBytes, 0);
    setLetters(characters, lettersOfCharacters,
               characters->verticalScrollBar()->sizeHint().width());
    QObject::connect(bytes->verticalScrollBar(), &QScrollBar::valueChanged,
                     characters->verticalScrollBar(), &QScrollBar::setValue);
    QObject::connect(characters->verticalScrollBar(), &QScrollBar::valueChanged,
                     bytes->verticalScrollBar(), &QScrollBar::setValue);
    return row({bytes, characters});
}

QWidget* makeSectorList(DlgDriveInfo& form, UserHand& hand) {
    auto* list = new ListViewWidget(
        form.lvInfo, [](const std::string&) { return QIcon(); },
        {.stretchedColumn = 1, .preferred = {readingWidth, 200}}, hand);
    list->setHeaderHidden(true);
    return list;
}

QLabel* makeReason(DlgDriveInfo& form) {
    QLabel* reason = quietCaption(form.lblReason);
    follow(form.lblReason.Changed, reason,
           [reason, &form] { setShown(reason, !form.lblReason.Caption().empty()); });
    return reason;
}

QWidget* makePartitionPanel(DlgDriveInfo& form, UserHand& hand) {
    auto* drive = makeChoice(form.drvDrive, hand);
    auto* word = makeCaption(form.lblDrive);
    word->setBuddy(drive);
    auto* dump = column({makeCaption(form.Label3)});
    dump->addLayout(makeDump(form));
    auto* sides = new QHBoxLayout;
    sides->setContentsMargins(0, 0, 0, 0);
    sides->setSpacing(2 * gap);
    sides->addLayout(column({frameHeading(form.fraPartInfo), makeSectorList(form, hand)}), 1);
    sides->addLayout(dump);
    QWidget* info = around(sides);
    bindField(info, form.fraPartInfo, [] {});
    auto* content = column({});
    content->addLayout(row({word, drive, makeButton(form.cmdEnter, hand), nullptr}));
    content->addWidget(makeReason(form));
    content->addWidget(info, 1);
    return panelOf(form.frmPart, content);
}

QWidget* makeAttributePanel(DlgDriveInfo& form, UserHand& hand) {
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(attributeGap);
    grid->setVerticalSpacing(gap + 4);
    for (std::size_t i = 0; i < form.lblCaption.size(); ++i) {
        const int line = static_cast<int>(i);
        grid->addWidget(makeCaption(form.lblCaption[i]), line, 0);
        if (i == 0) {
            grid->addWidget(makeChoice(form.cboDrives, hand), line, 1);
            continue;
        }
        QLabel* value = makeCaption(form.lblInfo[i - 1]);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setAccessibleName(shown(form.lblCaption[i].Caption()));
        grid->addWidget(value, line, 1);
    }
    grid->setColumnMinimumWidth(1, readingWidth / 2);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(static_cast<int>(form.lblCaption.size()), 1);
    return panelOf(form.frmAD, grid);
}

}  // namespace

QWidget* makeDriveInfoWindow(DlgDriveInfo& form, UserHand& hand, Printing& printing) {
    auto* content = column({heading(form.Label6), paragraph(form.Label5)});
    content->addSpacing(gap);
    content->addLayout(
        row({makeChoice(form.Combo1, hand), makeButton(form.cmdHistory, hand), nullptr}));
    content->addWidget(makeCaption(form.lblDesc, true));
    content->addSpacing(gap / 2);
    const auto words = [&form] {
        return PrintedWords{shown(form.Combo1.Text()), {shown(form.lblDesc.Caption())}};
    };
    for (Chart& chart : form.MSChart1) {
        auto* view = new ChartView(chart, hand);
        view->offerPrinting(printing, hand, words);
        content->addWidget(view, 1);
    }
    content->addWidget(makePartitionPanel(form, hand), 1);
    content->addWidget(makeAttributePanel(form, hand), 1);
    QPushButton* ok = makeButton(form.cmdOK, hand);
    ok->setDefault(true);
    content->addSpacing(gap / 2);
    content->addLayout(row({quietCaption(form.lblHelp), nullptr, ok}));
    return dialog(form, content, hand, {.sized = true});
}

}  // namespace velmora::qt
