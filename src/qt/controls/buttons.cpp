#include "qt/controls/buttons.h"

#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// Shows the field's state after a click: a handler may have refused or undone it.
template <typename Field>
void clickField(QAbstractButton* button, Field& field, UserHand& hand, Refresher* refresher) {
    QObject::connect(button, &QAbstractButton::clicked, button, [&field, &hand, refresher] {
        hand.does([&field] { field.userClick(); });
        refresher->refreshNow();
    });
}

}  // namespace

QCheckBox* makeCheckBox(CheckBox& field, UserHand& hand) {
    auto* box = new QCheckBox;
    Refresher* refresher = bindField(box, field, [box, &field] {
        box->setText(shown(field.Caption()).trimmed());
        box->setChecked(field.ticked());
    });
    clickField(box, field, hand, refresher);
    return box;
}

QRadioButton* makeOptionButton(OptionButton& field, UserHand& hand) {
    auto* button = new QRadioButton;
    // The fields switch each other off themselves.
    button->setAutoExclusive(false);
    Refresher* refresher = bindField(button, field, [button, &field] {
        button->setText(shown(field.Caption()));
        button->setChecked(field.Value());
    });
    clickField(button, field, hand, refresher);
    return button;
}

QPushButton* makeButton(CommandButton& field, UserHand& hand) {
    auto* button = new QPushButton;
    button->setAutoDefault(false);
    Refresher* refresher =
        bindField(button, field, [button, &field] { button->setText(shown(field.Caption())); });
    clickField(button, field, hand, refresher);
    return button;
}

QToolButton* makeIconButton(CommandButton& field, Glyph glyph, UserHand& hand) {
    auto* button = new QToolButton;
    button->setIcon(glyphIcon(glyph));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    Refresher* refresher = bindField(button, field, [button, &field] {
        if (!field.ToolTipText().empty()) return;
        // A caption such as "..." explains nothing.
        const QString words = button->accessibleName();
        button->setToolTip(words.isEmpty() ? shown(field.Caption()) : words);
    });
    clickField(button, field, hand, refresher);
    return button;
}

QLabel* makeCaption(Label& field, bool wraps) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(wraps);
    bindField(label, field, [label, &field] { label->setText(shownLines(field.Caption())); });
    return label;
}

QPushButton* makeLink(Label& field, UserHand& hand) {
    auto* link = new QPushButton;
    link->setFlat(true);
    link->setCursor(Qt::PointingHandCursor);
    link->setAutoDefault(false);
    Refresher* refresher =
        bindField(link, field, [link, &field] { link->setText(shown(field.Caption())); });
    clickField(link, field, hand, refresher);
    return link;
}

}  // namespace velmora::qt
