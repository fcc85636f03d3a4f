#include "qt/controls/label_tabs.h"

#include <QBoxLayout>

#include "qt/controls/accessible_tabs.h"

namespace velmora::qt {

namespace {

constexpr int tabGap = 3;

}  // namespace

LabelTabs::LabelTabs(std::span<Label> labels, UserHand& hand, LabelButton::Shape shape,
                     const QString& name, QWidget* parent)
    : QWidget(parent) {
    makeTabsAccessible();
    setAccessibleName(name);
    const bool areAbove = shape == LabelButton::Shape::topTab;
    auto* layout =
        new QBoxLayout(areAbove ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(tabGap);
    std::vector<QWidget*> members;
    for (Label& label : labels) {
        auto* tab = new LabelButton(label, hand, shape);
        connect(tab, &LabelButton::selectionChanged, this, &LabelTabs::followSelection);
        layout->addWidget(tab);
        tabs_.push_back(tab);
        members.push_back(tab);
    }
    layout->addStretch(1);
    stop_ = new OneStop(this, members);
    stop_->whenReached([](QWidget* tab) { static_cast<LabelButton*>(tab)->click(); });
    followSelection();
}

// The Tab key reaches the selected tab.
void LabelTabs::followSelection() {
    for (LabelButton* tab : tabs_) {
        if (tab->isSelected()) stop_->setStop(tab);
    }
}

}  // namespace velmora::qt
