#include "qt/controls/accessible_tabs.h"

#include <QAccessibleWidget>
#include <QTabBar>

#include "qt/controls/accessible_part.h"
#include "qt/controls/label_tabs.h"

namespace velmora::qt {

namespace {

class AccessibleTab : public QAccessibleWidget {
  public:
    explicit AccessibleTab(LabelButton* tab) : QAccessibleWidget(tab, QAccessible::PageTab) {}

    QString text(QAccessible::Text kind) const override {
        const QString words = QAccessibleWidget::text(kind);
        return words.isEmpty() && kind == QAccessible::Name ? tab()->text() : words;
    }
    QAccessible::State state() const override {
        QAccessible::State all = QAccessibleWidget::state();
        all.focusable = true;
        all.selectable = true;
        all.selected = tab()->isSelected();
        return all;
    }
    QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name != pressAction()) return QAccessibleWidget::doAction(name);
        if (tab()->isEnabled()) tab()->click();
    }

  private:
    LabelButton* tab() const { return static_cast<LabelButton*>(widget()); }
};

// A tab of a tab bar, which has no widget of its own.
class AccessibleBarTab : public AccessiblePart<QTabBar>, public QAccessibleActionInterface {
  public:
    AccessibleBarTab(QTabBar* bar, int number) : AccessiblePart(bar), number_(number) {}

    void* interface_cast(QAccessible::InterfaceType kind) override {
        return kind == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    bool isValid() const override { return owner() != nullptr && number_ < owner()->count(); }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? owner()->tabText(number_) : QString();
    }
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect place = owner()->tabRect(number_);
        return {owner()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QAccessible::State state() const override {
        QAccessible::State all;
        all.invalid = !isValid();
        if (all.invalid) return all;
        all.focusable = true;
        all.selectable = true;
        all.selected = owner()->currentIndex() == number_;
        all.focused = all.selected && owner()->hasFocus();
        all.disabled = !owner()->isEnabled();
        all.invisible = !owner()->isVisible();
        return all;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction() && isValid() && owner()->isEnabled())
            owner()->setCurrentIndex(number_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    int number() const { return number_; }

  private:
    int number_;
};

class AccessibleBar : public QAccessibleWidget {
  public:
    explicit AccessibleBar(QTabBar* bar) : QAccessibleWidget(bar, QAccessible::PageTabList) {}
    int childCount() const override { return bar()->count(); }
    QAccessibleInterface* child(int number) const override {
        if (number < 0 || number >= childCount()) return nullptr;
        return tabs_.find(number, [&] { return new AccessibleBarTab(bar(), number); });
    }
    int indexOfChild(const QAccessibleInterface* part) const override {
        const auto* tab = dynamic_cast<const AccessibleBarTab*>(part);
        return tab == nullptr ? -1 : tab->number();
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(bar()->tabAt(bar()->mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override {
        return bar()->hasFocus() ? child(bar()->currentIndex()) : nullptr;
    }

  private:
    QTabBar* bar() const { return static_cast<QTabBar*>(widget()); }

    mutable AccessibleParts<int, AccessibleBarTab> tabs_;
};

QAccessibleInterface* makeTabInterface(const QString&, QObject* object) {
    if (auto* strip = qobject_cast<LabelTabs*>(object)) {
        return new QAccessibleWidget(strip, QAccessible::PageTabList);
    }
    if (auto* bar = qobject_cast<QTabBar*>(object)) return new AccessibleBar(bar);
    auto* tab = qobject_cast<LabelButton*>(object);
    return tab != nullptr && tab->isTab() ? new AccessibleTab(tab) : nullptr;
}

}  // namespace

void makeTabsAccessible() {
    QAccessible::installFactory(makeTabInterface);
}

}  // namespace velmora::qt
