#include "qt/controls/entries.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include "base/text.h"
#include "controls/keys.h"
#include "qt/controls/file_drops.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// Reports to the field that the focus has left its widget, also when the widget is destroyed.
class FocusWatch : public QObject {
  public:
    FocusWatch(QWidget* widget, TextBox& field, UserHand& hand, const Refresher& refresher)
        : QObject(widget), field_(field), hand_(hand), refresher_(refresher) {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::FocusOut && refresher_.fieldExists()) {
            hand_.does(field_, [this] { field_.loseFocus(); });
        }
        return false;
    }

  private:
    TextBox& field_;
    UserHand& hand_;
    const Refresher& refresher_;
};

void showText(QLineEdit* edit, const TextBox& field) {
    const QString text = shown(field.Text());
    // Writing the same text again would move the caret while the user types.
    if (edit->text() != text) {
        const QSignalBlocker quiet(edit);
        edit->setText(text);
    }
    if (field.Focused() && !edit->hasFocus()) {
        edit->setFocus();
        edit->selectAll();
    }
}

// Entry by entry: the user may have the list open.
void showEntries(QComboBox* box, const ComboBox& field) {
    while (box->count() > field.ListCount()) box->removeItem(box->count() - 1);
    for (int i = 0; i < field.ListCount(); ++i) {
        const QString text = shown(field.List(i));
        if (i >= box->count()) {
            box->addItem(text);
        } else if (box->itemText(i) != text) {
            box->setItemText(i, text);
        }
    }
}

// Two arrows above each other: one stop of the Tab key, where the keys Up and Down turn the
// spinner.
class ArrowPair : public QWidget {
  public:
    ArrowPair(UpDown& field, UserHand& hand) {
        up_ = addArrow(Qt::UpArrow,
                       [&field, &hand] { hand.does(field, [&field] { field.userUp(); }); });
        down_ = addArrow(Qt::DownArrow,
                         [&field, &hand] { hand.does(field, [&field] { field.userDown(); }); });
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        layout->addWidget(up_);
        layout->addWidget(down_);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        setFocusPolicy(Qt::StrongFocus);
    }
    void nameArrows() {
        up_->setObjectName(objectName() + QStringLiteral(".Up"));
        down_->setObjectName(objectName() + QStringLiteral(".Down"));
        up_->setAccessibleName(QStringLiteral("More: %1").arg(accessibleName()));
        down_->setAccessibleName(QStringLiteral("Less: %1").arg(accessibleName()));
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isUp = event->key() == Qt::Key_Up;
        if (!isUp && event->key() != Qt::Key_Down) return QWidget::keyPressEvent(event);
        (isUp ? up_ : down_)->click();
    }
    void focusInEvent(QFocusEvent*) override { showFocus(); }
    void focusOutEvent(QFocusEvent*) override { showFocus(); }

  private:
    template <typename Turn>
    QToolButton* addArrow(Qt::ArrowType type, Turn turn) {
        auto* button = new QToolButton;
        button->setArrowType(type);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedSize(18, 13);
        connect(button, &QToolButton::clicked, button, turn);
        return button;
    }
    // The arrows cover it: their letters get the colour of the focus.
    void showFocus() {
        QPalette colours;
        if (hasFocus()) {
            colours.setColor(QPalette::Button, palette().color(QPalette::Highlight));
            colours.setColor(QPalette::ButtonText, palette().color(QPalette::HighlightedText));
        }
        for (QToolButton* arrow : {up_, down_}) arrow->setPalette(colours);
    }

    QToolButton* up_ = nullptr;
    QToolButton* down_ = nullptr;
};

DateTime withTime(DateTime value, const QTime& time) {
    value.hour = time.hour();
    value.minute = time.minute();
    value.second = time.second();
    return value;
}

}  // namespace

QLineEdit* makeLineEdit(TextBox& field, UserHand& hand) {
    auto* edit = new QLineEdit;
    Refresher* refresher = bindField(edit, field, [edit, &field] { showText(edit, field); });
    if (field.masked()) edit->setEchoMode(QLineEdit::Password);
    new FocusWatch(edit, field, hand, *refresher);
    // Also by a screen reader, which does not type.
    QObject::connect(edit, &QLineEdit::textChanged, edit,
                     [&field, &hand, refresher](const QString& text) {
                         hand.does(field, [&] { field.setText(typed(text)); });
                         refresher->touch();
                     });
    QObject::connect(edit, &QLineEdit::returnPressed, edit, [&field, &hand] {
        hand.does(field, [&field] { field.KeyPress(key::enter); });
    });
    return edit;
}

QSlider* makeSlider(Slider& field, UserHand& hand) {
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setRange(field.Min(), field.Max());
    slider->setSingleStep(field.SmallChange());
    slider->setPageStep(field.LargeChange());
    bindField(slider, field, [slider, &field] {
        const QSignalBlocker quiet(slider);
        slider->setValue(field.Value());
    });
    QObject::connect(slider, &QSlider::valueChanged, slider, [&field, &hand](int value) {
        hand.does(field, [&field, value] { field.userScroll(value); });
    });
    return slider;
}

QSlider* makeUprightSlider(Slider& field, UserHand& hand) {
    auto* slider = new QSlider(Qt::Vertical);
    slider->setRange(0, field.Max() - field.Min());
    slider->setSingleStep(field.SmallChange());
    slider->setPageStep(field.LargeChange());
    bindField(slider, field, [slider, &field] {
        const QSignalBlocker quiet(slider);
        slider->setValue(field.Max() - field.Value());
    });
    QObject::connect(slider, &QSlider::valueChanged, slider, [&field, &hand](int value) {
        hand.does(field, [&field, value] { field.userScroll(field.Max() - value); });
    });
    return slider;
}

QTimeEdit* makeTimeEdit(DatePicker& field, const QString& picture, UserHand& hand) {
    auto* edit = new QTimeEdit;
    edit->setDisplayFormat(picture);
    edit->setWrapping(true);
    Refresher* refresher = bindField(edit, field, [edit, &field] {
        const QSignalBlocker quiet(edit);
        edit->setTime({field.Hour(), field.Minute(), field.Second()});
    });
    QObject::connect(edit, &QTimeEdit::timeChanged, edit,
                     [&field, &hand, refresher](const QTime& time) {
                         hand.does(field, [&] { field.setValue(withTime(field.Value(), time)); });
                         refresher->touch();
                     });
    return edit;
}

QComboBox* makeComboBox(ComboBox& field, UserHand& hand) {
    auto* box = new QComboBox;
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr);
    box->setMinimumContentsLength(12);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    bindField(box, field, [box, &field] {
        const QSignalBlocker quiet(box);
        showEntries(box, field);
        if (box->currentText() != shown(field.Text())) box->setEditText(shown(field.Text()));
    });
    box->lineEdit()->setAccessibleName(box->accessibleName());
    for (QWidget* part : std::initializer_list<QWidget*>{box, box->lineEdit()}) {
        takeDrops(part, field, hand);
    }
    QObject::connect(box, &QComboBox::currentTextChanged, box,
                     [&field, &hand](const QString& text) {
                         hand.does(field, [&field, &text] { field.setText(typed(text)); });
                     });
    QObject::connect(box, &QComboBox::activated, box, [&field, &hand](int index) {
        hand.does(field, [&field, index] {
            if (index < field.ListCount()) field.userChoose(index);
        });
    });
    QObject::connect(box->lineEdit(), &QLineEdit::returnPressed, box, [&field, &hand] {
        hand.does(field, [&field] { field.KeyPress(key::enter); });
    });
    return box;
}

QComboBox* makeChoice(ComboBox& field, UserHand& hand) {
    auto* box = new QComboBox;
    Refresher* refresher = bindField(box, field, [box, &field] {
        const QSignalBlocker quiet(box);
        showEntries(box, field);
        // A text of the program's may be an entry that nobody has chosen.
        box->setCurrentIndex(field.ListIndex() >= 0 ? field.ListIndex()
                                                    : box->findText(shown(field.Text())));
    });
    QObject::connect(box, &QComboBox::activated, box, [&field, &hand, refresher](int index) {
        hand.does(field, [&field, index] {
            if (index < field.ListCount()) field.userChoose(index);
        });
        refresher->touch();
    });
    return box;
}

QPlainTextEdit* makeTextEdit(TextBox& field, UserHand& hand) {
    auto* edit = new QPlainTextEdit;
    edit->setTabChangesFocus(true);
    Refresher* refresher = bindField(edit, field, [edit, &field] {
        const QString text = shownLines(field.Text());
        const QSignalBlocker quiet(edit);
        // Writing the same text again would move the caret while the user types.
        if (edit->toPlainText() != text) edit->setPlainText(text);
    });
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [edit, &field, &hand, refresher] {
        hand.does(field,
                  [&] { field.setText(replaceAll(typed(edit->toPlainText()), "\n", lineEnd)); });
        refresher->touch();
    });
    return edit;
}

namespace {

// The system's own choice, unless that isn't installed: any other font would stand in for it then.
QFont fixedPitchFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const QStringList installed = QFontDatabase::families();
    for (const char* family : {"Consolas", "Courier New", "DejaVu Sans Mono", "Liberation Mono"}) {
        if (QFontInfo(font).fixedPitch()) break;
        if (installed.contains(QLatin1String(family))) font.setFamily(QLatin1String(family));
    }
    return font;
}

}  // namespace

QPlainTextEdit* makeTextView(TextBox& field) {
    auto* view = new QPlainTextEdit;
    view->setReadOnly(true);
    view->setTabChangesFocus(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(fixedPitchFont());
    bindField(view, field, [view, &field] {
        const QString text = withVisibleControls(shownLines(field.Text()));
        if (view->toPlainText() != text) view->setPlainText(text);
    });
    return view;
}

QWidget* makeUpDown(UpDown& field, UserHand& hand) {
    auto* pair = new ArrowPair(field, hand);
    bindField(pair, field, [] {});
    pair->nameArrows();
    return pair;
}

}  // namespace velmora::qt
