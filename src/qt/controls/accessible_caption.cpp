#include "qt/controls/accessible_caption.h"

#include <QAccessibleWidget>

#include "qt/controls/elided_label.h"

namespace velmora::qt {

namespace {

// The text of the widget's property is read whole: there is no caret in it and no selection.
class AccessibleCaption : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit AccessibleCaption(QWidget* label)
        : QAccessibleWidget(label, QAccessible::StaticText) {}

    void* interface_cast(QAccessible::InterfaceType kind) override {
        if (kind == QAccessible::TextInterface && isNamed()) {
            return static_cast<QAccessibleTextInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(kind);
    }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) return isNamed() ? value() : QString();
        if (kind == QAccessible::Name && !isNamed()) return value();
        return QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State all = QAccessibleWidget::state();
        all.readOnly = true;
        return all;
    }

    QString text(int start, int end) const override { return value().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(value().size()); }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    int selectionCount() const override { return 0; }
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return 0; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

  private:
    bool isNamed() const { return !widget()->accessibleName().isEmpty(); }
    QString value() const { return widget()->property("text").toString(); }
};

QAccessibleInterface* makeCaptionInterface(const QString&, QObject* object) {
    const bool isCaption = qobject_cast<CaptionLabel*>(object) != nullptr ||
                           qobject_cast<ElidedLabel*>(object) != nullptr;
    return isCaption ? new AccessibleCaption(static_cast<QWidget*>(object)) : nullptr;
}

}  // namespace

void makeCaptionsAccessible() {
    QAccessible::installFactory(makeCaptionInterface);
}

}  // namespace velmora::qt
