#include "qt/windows/dialog_pieces.h"

#include "qt/controls/buttons.h"
#include "qt/icons/program_icon.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

QWidget* dialog(Form& form, QLayout* content, UserHand& hand, WindowKind kind) {
    auto* window = new QWidget;
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
