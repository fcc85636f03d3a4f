#include "qt/windows/dialog_pieces.h"

#include <QAccessibleWidget>

#include "qt/controls/buttons.h"
#include "qt/icons/program_icon.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

// Qt's own dialogs end at keys that the fields decide about, and a plain widget is no dialog to a
// screen reader.
class DialogWindow : public QWidget {};

QAccessibleInterface* makeDialogInterface(const QString&, QObject* object) {
    auto* window = dynamic_cast<DialogWindow*>(object);
    return window == nullptr ? nullptr : new QAccessibleWidget(window, QAccessible::Dialog);
}

}  // namespace

QWidget* dialog(Form& form, QLayout* content, UserHand& hand, WindowKind kind) {
    QAccessible::installFactory(makeDialogInterface);
    auto* window = new DialogWindow;
    window->setWindowIcon(programIcon());
    content->setContentsMargins(2 * gap, 2 * gap, 2 * gap, 2 * gap);
    window->setLayout(content);
    new FormBinding(window, form, hand, kind);
    return window;
}

QLabel* heading(Label& field) {
    auto* label = makeCaption(field);
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    label->setFont(font);
    return label;
}

QLabel* sectionHeading(Label& field) {
    auto* label = makeCaption(field);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

QLabel* quietCaption(Label& field) {
    auto* label = makeCaption(field, true);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QLabel* paragraph(Label& field) {
    auto* label = makeCaption(field, true);
    label->setMinimumWidth(readingWidth);
    return label;
}

}  // namespace velmora::qt
