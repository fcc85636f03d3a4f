#include "qt/controls/accessible_tabs.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QTabBar>
#include <vector>

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
class AccessibleBarTab : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    AccessibleBarTab(QTabBar* bar, int number) : bar_(bar), number_(number) {}

    void* interface_cast(QAccessible::InterfaceType kind) override {
        return kind == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    bool isValid() const override { return bar_ != nullptr && number_ < bar_->count(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override {
        return bar_ == nullptr ? nullptr : bar_->window()->windowHandle();
    }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(bar_);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? bar_->tabText(number_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect place = bar_->tabRect(number_);
        return {bar_->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QAccessible::State state() const override {
        QAccessible::State all;
        all.invalid = !isValid();
        if (all.invalid) return all;
        all.focusable = true;
        all.selectable = true;
        all.selected = bar_->currentIndex() == number_;
        all.focused = all.selected && bar_->hasFocus();
        all.disabled = !bar_->isEnabled();
        all.invisible = !bar_->isVisible();
        return all;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction() && isValid() && bar_->isEnabled()) bar_->setCurrentIndex(number_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    int number() const { return number_; }

  private:
    QPointer<QTabBar> bar_;
    int number_;
};

class AccessibleBar : public QAccessibleWidget {
  public:
    explicit AccessibleBar(QTabBar* bar) : QAccessibleWidget(bar, QAccessible::PageTabList) {}
    ~AccessibleBar() override {
        for (const QAccessible::Id id : tabs_) QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return bar()->count(); }
    QAccessibleInterface* child(int number) const override {
        if (number < 0 || number >= childCount()) return nullptr;
        while (static_cast<int>(tabs_.size()) <= number) {
            auto* tab = new AccessibleBarTab(bar(), static_cast<int>(tabs_.size()));
            tabs_.push_back(QAccessible::registerAccessibleInterface(tab));
        }
        return QAccessible::accessibleInterface(tabs_[static_cast<std::size_t>(number)]);
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

    mutable std::vector<QAccessible::Id> tabs_;
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
