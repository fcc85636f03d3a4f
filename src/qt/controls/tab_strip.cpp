#include "qt/controls/tab_strip.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTabBar>

#include "qt/controls/accessible_tabs.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// Home and End go to the first and the last tab; the tabs themselves know Left and Right.
class FirstAndLast : public QObject {
  public:
    explicit FirstAndLast(QTabBar* tabs) : QObject(tabs), tabs_(tabs) {
        tabs->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Home && key != Qt::Key_End) return false;
        tabs_->setCurrentIndex(key == Qt::Key_Home ? 0 : tabs_->count() - 1);
        return true;
    }

  private:
    QTabBar* tabs_;
};

}  // namespace

QTabWidget* makeTabs(TabStrip& strip, std::initializer_list<QWidget*> pages, UserHand& hand) {
    makeTabsAccessible();
    auto* tabs = new QTabWidget;
    for (QWidget* page : pages) tabs->addTab(page, shown(strip.Tabs(tabs->count() + 1)));
    tabs->setUsesScrollButtons(false);
    new FirstAndLast(tabs->tabBar());
    bindField(tabs, strip, [tabs, &strip] {
        const QSignalBlocker quiet(tabs);
        tabs->setCurrentIndex(strip.SelectedItem() - 1);
    });
    tabs->tabBar()->setAccessibleName(tabs->accessibleName());
    QObject::connect(tabs, &QTabWidget::currentChanged, tabs, [&strip, &hand](int index) {
        hand.does(strip, [&strip, index] { strip.userClickPart(index + 1); });
    });
    return tabs;
}

}  // namespace velmora::qt
