#include "qt/controls/buttons.h"

#include "qt/controls/accessible_caption.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// A click doesn't change its picture: the field does.
template <typename Button>
class ShowsField : public Button {
  protected:
    void nextCheckState() override {}
};

// Shows the field's state after a click: a handler may have refused or undone it.
template <typename Field>
void clickField(QAbstractButton* button, Field& field, UserHand& hand, Refresher* refresher) {
    QObject::connect(button, &QAbstractButton::clicked, button, [&field, &hand, refresher] {
        hand.does(field, [&field] { field.userClick(); });
        refresher->refreshNow();
    });
}

// A screen reader toggles the button without a click: that is the user's click too.
template <typename Field>
void toggleField(QAbstractButton* button, Field& field, UserHand& hand, Refresher* refresher,
                 bool (*isOn)(const Field&)) {
    QObject::connect(button, &QAbstractButton::toggled, button,
                     [&field, &hand, refresher, isOn](bool on) {
                         if (!refresher->fieldExists() || on == isOn(field)) return;
                         hand.does(field, [&field] { field.userClick(); });
                         refresher->refreshNow();
                     });
}

}  // namespace

QCheckBox* makeCheckBox(CheckBox& field, UserHand& hand) {
    auto* box = new ShowsField<QCheckBox>;
    Refresher* refresher = bindField(box, field, [box, &field] {
        box->setText(shown(field.Caption()).trimmed());
        box->setChecked(field.ticked());
    });
    clickField(box, field, hand, refresher);
    toggleField<CheckBox>(box, field, hand, refresher,
                          [](const CheckBox& shownField) { return shownField.ticked(); });
    return box;
}

QRadioButton* makeOptionButton(OptionButton& field, UserHand& hand) {
    auto* button = new ShowsField<QRadioButton>;
    // The fields switch each other off themselves.
    button->setAutoExclusive(false);
    Refresher* refresher = bindField(button, field, [button, &field] {
        button->setText(shown(field.Caption()));
        button->setChecked(field.Value());
    });
    clickField(button, field, hand, refresher);
    toggleField<OptionButton>(button, field, hand, refresher,
                              [](const OptionButton& shownField) { return shownField.Value(); });
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
    auto* label = new CaptionLabel;
    makeCaptionsAccessible();
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
