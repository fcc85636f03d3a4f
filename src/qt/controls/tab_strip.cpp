#include "qt/controls/tab_strip.h"

#include <QSignalBlocker>

#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

QTabWidget* makeTabs(TabStrip& strip, std::initializer_list<QWidget*> pages, UserHand& hand) {
    auto* tabs = new QTabWidget;
    for (QWidget* page : pages) tabs->addTab(page, shown(strip.Tabs(tabs->count() + 1)));
    tabs->setUsesScrollButtons(false);
    bindField(tabs, strip, [tabs, &strip] {
        const QSignalBlocker quiet(tabs);
        tabs->setCurrentIndex(strip.SelectedItem() - 1);
    });
    QObject::connect(tabs, &QTabWidget::currentChanged, tabs, [&strip, &hand](int index) {
        hand.does([&strip, index] { strip.userClickPart(index + 1); });
    });
    return tabs;
}

}  // namespace velmora::qt
