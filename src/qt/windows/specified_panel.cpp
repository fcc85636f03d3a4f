#include <QGridLayout>
#include <QStackedLayout>
#include <span>

#include "forms/form_numbers.h"
#include "qt/controls/buttons.h"
#include "qt/controls/entries.h"
#include "qt/controls/label_tabs.h"
#include "qt/controls/list_view_widget.h"
#include "qt/controls/one_stop.h"
#include "qt/surface/field.h"
#include "qt/windows/flow_layout.h"
#include "qt/windows/layouts.h"
#include "qt/windows/panels.h"

namespace velmora::qt {

namespace {

constexpr int programPath = 2;

QWidget* makeLabelButtons(std::span<Label> labels, UserHand& hand) {
    auto* flow = new FlowLayout(gap);
    std::vector<QWidget*> buttons;
    for (Label& label : labels) {
        buttons.push_back(new LabelButton(label, hand, LabelButton::Shape::button));
        flow->addWidget(buttons.back());
    }
    QWidget* all = around(flow);
    new OneStop(all, buttons);
    return all;
}

ListViewWidget* makeList(ListView& list, UserHand& hand, int stretchedColumn,
                         const char* emptyWords) {
    return new ListViewWidget(
        list, [](const std::string&) { return QIcon(); },
        {.stretchedColumn = stretchedColumn,
         .preferred = {260, 100},
         .emptyWords = QString::fromLatin1(emptyWords)},
        hand);
}

QWidget* makePrograms(Form1& form, UserHand& hand) {
    auto* entry = makeComboBox(form.cboProg, hand);
    entry->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* page = column({});
    page->addLayout(row({entry, makeButton(form.cmdPAdd, hand)}));
    page->addWidget(makeList(form.LVProg, hand, programPath, noPrograms), 1);
    page->addWidget(
        makeLabelButtons(std::span(form.Label5).first(program_button::checkUpdates), hand));
    return around(page);
}

QWidget* makeFiles(Form1& form, UserHand& hand) {
    auto* entry = makeComboBox(form.cboFile, hand);
    entry->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* page = column({entry});
    page->addWidget(makeList(form.LVFile, hand, -1, noFiles), 1);
    page->addWidget(makeLabelButtons(form.lblSF, hand));
    return around(page);
}

QWidget* makeMinimumSpace(Form1& form, UserHand& hand) {
    auto* space = makeLineEdit(form.txtSpace, hand);
    space->setMaximumWidth(120);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(gap);
    grid->setVerticalSpacing(gap);
    grid->addWidget(wordFor(QStringLiteral("Minimum Space"), space), 0, 0);
    grid->addLayout(row({space, makeUpDown(form.UpDownSpace, hand), makeCaption(form.lblMB),
                         makeCaption(form.lblGB), nullptr}),
                    0, 1);
    auto* bySize = makeOptionButton(form.OpDriv[0], hand);
    auto* byPercent = makeOptionButton(form.OpDriv[1], hand);
    new OneStop(bySize, {bySize, byPercent});
    grid->addLayout(row({bySize, byPercent, makeCheckBox(form.chkDrive, hand), nullptr}), 1, 0, 1,
                    2);
    grid->addWidget(makeSlider(form.Slider1, hand), 2, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    return group(QStringLiteral("Set Minimum Space"), grid);
}

QWidget* makePaths(Form1& form, UserHand& hand) {
    auto* path = makeLineEdit(form.txtDrive, hand);
    auto* types = makeLineEdit(form.txtFileType, hand);
    types->setPlaceholderText(QStringLiteral("Input File types like so: .avi|.mp3|.txt|.tmp"));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(gap);
    grid->setVerticalSpacing(gap);
    grid->addWidget(makeCaption(form.lblFolder), 0, 0);
    grid->addWidget(path, 0, 1);
    grid->addWidget(makeIconButton(form.cmdFolder, Glyph::browse, hand), 0, 2);
    grid->addWidget(wordFor(QStringLiteral("File Types"), types), 1, 0);
    grid->addWidget(types, 1, 1, 1, 2);
    return group(QStringLiteral("Specified Path to Move"), grid);
}

QWidget* makePathAndSpace(Form1& form, UserHand& hand) {
    // The commands of the watch list stand below it.
    auto* page = column({makeMinimumSpace(form, hand), makePaths(form, hand)});
    page->addStretch(1);
    return scrolled(around(page));
}

}  // namespace

QWidget* makeSpecifiedPanel(Form1& form, UserHand& hand) {
    auto* strip = new LabelTabs(form.lblSpectab, hand, LabelButton::Shape::topTab,
                                QStringLiteral("Specified options"));
    auto* pages = column({});
    QWidget* panels[] = {makePrograms(form, hand), makePathAndSpace(form, hand),
                         makeFiles(form, hand)};
    for (std::size_t i = 0; i < form.fr.size(); ++i) {
        pages->addWidget(panels[i]);
        bindField(panels[i], form.fr[i], [] {});
    }
    auto* content = column({});
    content->setSpacing(gap);
    content->addWidget(strip);
    content->addLayout(pages, 1);
    return around(content);
}

}  // namespace velmora::qt
