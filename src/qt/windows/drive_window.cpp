// The view of one drive: its figures above, and below them, in the high window, what it contains
// and its minimum free space.
#include <QGridLayout>
#include <QProgressBar>

#include "qt/controls/buttons.h"
#include "qt/controls/entries.h"
#include "qt/controls/gauge_widget.h"
#include "qt/controls/list_view_widget.h"
#include "qt/controls/picture_widget.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

QLabel* smallWord(const QString& text, Qt::Alignment alignment) {
    auto* label = new QLabel(text);
    label->setAlignment(alignment);
    return label;
}

QLayout* namedGauge(const QString& name, Meter2& field) {
    auto* gauge = new GaugeWidget(field);
    auto* content = column({});
    content->setSpacing(gap / 2);
    content->addWidget(gauge, 1, Qt::AlignHCenter);
    content->addWidget(smallWord(name, Qt::AlignHCenter));
    return content;
}

QProgressBar* makeShare(ProgressBar& field) {
    auto* bar = new QProgressBar;
    bar->setRange(field.Min(), field.Max());
    bindField(bar, field, [bar, &field] { bar->setValue(field.Value()); });
    return bar;
}

QLayout* makeFigures(FrmIndDri& form) {
    auto* figures = row({});
    figures->setSpacing(2 * gap);
    figures->addWidget(new PictureWidget(form.picPie), 1, Qt::AlignVCenter);
    figures->addLayout(namedGauge(QStringLiteral("Trigger"), form.VMeter1));
    figures->addLayout(namedGauge(QStringLiteral("Free Space"), form.VMeter2));
    return figures;
}

QLayout* makeScale(FrmIndDri& form, UserHand& hand) {
    auto* scale = new QGridLayout;
    scale->setContentsMargins(0, 0, 0, 0);
    scale->setHorizontalSpacing(gap / 2);
    scale->addWidget(makeUprightSlider(form.VScroll1, hand), 0, 0, 2, 1);
    scale->addWidget(smallWord(QStringLiteral("100 %"), Qt::AlignTop), 0, 1);
    scale->addWidget(smallWord(QStringLiteral("0 %"), Qt::AlignBottom), 1, 1);
    return scale;
}

QLayout* makeSetting(FrmIndDri& form, UserHand& hand) {
    auto* entry = column({makeLineEdit(form.Text1, hand)});
    for (OptionButton& option : form.Option1) entry->addWidget(makeOptionButton(option, hand));
    entry->addStretch(1);
    entry->addWidget(makeButton(form.Command3, hand));
    auto* content = row({});
    content->setSpacing(2 * gap);
    content->addLayout(makeScale(form, hand));
    content->addLayout(entry, 1);
    auto* setting = column({sectionHeading(form.Label1)});
    setting->addLayout(content, 1);
    return setting;
}

QWidget* makeLowerPart(FrmIndDri& form, UserHand& hand) {
    auto* list = new ListViewWidget(
        form.ListView1, [](const std::string&) { return QIcon(); },
        {.stretchedColumn = 1, .preferred = {200, 130}}, hand);
    auto* lower = row({});
    lower->setSpacing(3 * gap);
    lower->addWidget(list, 1);
    lower->addLayout(makeSetting(form, hand));
    return around(lower);
}

}  // namespace

QWidget* makeDriveWindow(FrmIndDri& form, UserHand& hand) {
    auto* content = column({makeChoice(form.Combo1, hand), heading(form.lblP)});
    content->addWidget(makeShare(form.ProgressBar1));
    content->addSpacing(gap);
    content->addLayout(makeFigures(form), 1);
    content->addSpacing(gap);
    QWidget* lower = makeLowerPart(form, hand);
    content->addWidget(lower, 1);
    content->addSpacing(gap);
    content->addLayout(row({makeCheckBox(form.Check1, hand), nullptr,
                            makeButton(form.cmdToggle, hand), makeButton(form.cmdC, hand)}));
    QWidget* window = dialog(form, content, hand, {.sized = true});
    // After the window has its size: a part that comes earlier would make it grow by itself.
    follow(form.Changed, lower,
           [lower, &form] { lower->setVisible(form.Height() >= FrmIndDri::fullHeight); });
    return window;
}

}  // namespace velmora::qt
