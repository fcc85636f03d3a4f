// A part of a widget, such as a cell or a tab, as a screen reader knows it: it has no widget of its
// own and no parts.
#pragma once

#include <QAccessibleInterface>
#include <QHash>
#include <QPointer>
#include <QWidget>

namespace velmora::qt {

/// `Owner` is the kind of widget that it is a part of, which may be destroyed before it.
template <typename Owner>
class AccessiblePart : public QAccessibleInterface {
  public:
    explicit AccessiblePart(Owner* owner) : owner_(owner) {}

    QObject* object() const override { return nullptr; }
    QWindow* window() const override {
        return owner_ == nullptr ? nullptr : owner_->window()->windowHandle();
    }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(owner_);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    void setText(QAccessible::Text, const QString&) override {}

  protected:
    Owner* owner() const { return owner_; }

  private:
    QPointer<Owner> owner_;
};

/// The parts of a widget that a screen reader has asked for. They live until they are forgotten.
template <typename Key, typename Part>
class AccessibleParts {
  public:
    AccessibleParts() = default;
    AccessibleParts(const AccessibleParts&) = delete;
    AccessibleParts& operator=(const AccessibleParts&) = delete;
    ~AccessibleParts() {
        forget([](const Part&) { return true; });
    }

    /// The part of a key, which `make` makes once.
    template <typename Make>
    Part* find(const Key& key, Make make) {
        const auto known = ids_.constFind(key);
        if (known != ids_.constEnd()) return partOf(*known);
        Part* part = make();
        ids_.insert(key, QAccessible::registerAccessibleInterface(part));
        return part;
    }
    /// Forgets the parts for which `which` is true.
    template <typename Which>
    void forget(Which which) {
        for (auto each = ids_.begin(); each != ids_.end();) {
            const Part* part = partOf(*each);
            if (part != nullptr && !which(*part)) {
                ++each;
                continue;
            }
            if (part != nullptr) QAccessible::deleteAccessibleInterface(*each);
            each = ids_.erase(each);
        }
    }

  private:
    // Null at the end of the program, when Qt has deleted it before.
    static Part* partOf(QAccessible::Id id) {
        return static_cast<Part*>(QAccessible::accessibleInterface(id));
    }

    QHash<Key, QAccessible::Id> ids_;
};

}  // namespace velmora::qt
