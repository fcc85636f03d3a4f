#include "qt/controls/password_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "base/wipe.h"
#include "controls/keys.h"
#include "qt/surface/field.h"

namespace velmora::qt {

namespace {

const QChar dot(0x25CF);

// The offset of a character in a UTF-8 text, in bytes.
std::size_t byteOf(const std::string& text, int character) {
    std::size_t place = 0;
    while (character > 0 && place < text.size()) {
        ++place;
        while (place < text.size() && (static_cast<unsigned char>(text[place]) & 0xC0) == 0x80)
            ++place;
        --character;
    }
    return place;
}

// Appends to the text, which is wiped later, without making another copy.
void appendUtf8(std::string& text, const QString& characters) {
    for (qsizetype i = 0; i < characters.size(); ++i) {
        char32_t code = characters[i].unicode();
        if (characters[i].isHighSurrogate() && i + 1 < characters.size()) {
            code = QChar::surrogateToUcs4(characters[i], characters[i + 1]);
            ++i;
        }
        if (code < 0x80) {
            text += static_cast<char>(code);
            continue;
        }
        const int tail = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        constexpr int leads[] = {0, 0xC0, 0xE0, 0xF0};
        text += static_cast<char>(leads[tail] | static_cast<int>(code >> (6 * tail)));
        for (int left = tail - 1; left >= 0; --left) {
            text += static_cast<char>(0x80 | (static_cast<int>(code >> (6 * left)) & 0x3F));
        }
    }
}

// A command is given with the control key, also together with shift; AltGr counts as control and
// alt.
bool isCommand(Qt::KeyboardModifiers keys) {
    return (keys & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::ControlModifier;
}

bool isText(const QKeyEvent* event) {
    const QString text = event->text();
    if (text.isEmpty() || isCommand(event->modifiers())) return false;
    const bool isPair = text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate();
    return isPair || text.front().isPrint();
}

}  // namespace

PasswordEdit::PasswordEdit(TextBox& field, UserHand& hand, QWidget* parent)
    : QLineEdit(parent), field_(field), hand_(hand) {
    setInputMethodHints(Qt::ImhHiddenText | Qt::ImhSensitiveData | Qt::ImhNoPredictiveText);
    // A screen reader has to announce a password entry, although it could only read dots.
    setEchoMode(Password);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    bindField(this, field, [this] { showDots(); });
    connect(this, &QLineEdit::textChanged, this, [this] { takeOver(); });
}

void PasswordEdit::showDots() {
    const QString dots(static_cast<qsizetype>(field_.textLength()), dot);
    if (text() == dots) return;
    const int caret = std::min<int>(cursorPosition(), static_cast<int>(dots.size()));
    setText(dots);
    setCursorPosition(caret);
}

// An assistive tool sets the text of the line, or inserts into it: the dots before and behind stand
// for the characters that stay. Fewer or more dots alone don't tell which characters are meant.
void PasswordEdit::takeOver() {
    QString shown = text();
    const auto isTyped = [](QChar character) { return character != dot; };
    const auto first = std::find_if(shown.cbegin(), shown.cend(), isTyped);
    if (first != shown.cend()) {
        const auto end = std::find_if(shown.crbegin(), shown.crend(), isTyped).base();
        const int held = static_cast<int>(field_.textLength());
        const int before = std::min(static_cast<int>(first - shown.cbegin()), held);
        const int behind = std::min(static_cast<int>(shown.cend() - end), held - before);
        replace(before, held - before - behind,
                QString(first, static_cast<qsizetype>(end - first)));
        shown.fill(QChar());
    }
    showDots();
}

void PasswordEdit::replace(int start, int length, const QString& characters) {
    std::string whole;
    // Reserved at once: a string that grows leaves copies in freed memory.
    whole.reserve(field_.Text().size() + 4 * static_cast<std::size_t>(characters.size()) + 16);
    const std::string& present = field_.Text();
    const std::size_t from = byteOf(present, start);
    const std::size_t to = byteOf(present, start + length);
    whole.append(present, 0, from);
    appendUtf8(whole, characters);
    const std::size_t end = whole.size();
    whole.append(present, to);
    const int caret =
        start + static_cast<int>(velmora::length(std::string_view(whole).substr(from, end - from)));
    hand_.does(field_, [&] { field_.setText(whole); });
    wipe(whole);
    showDots();
    setCursorPosition(caret);
}

void PasswordEdit::insertAtCaret(const QString& characters) {
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    replace(start, static_cast<int>(selectedText().size()), characters);
}

void PasswordEdit::removeAtCaret(bool forward) {
    if (hasSelectedText()) {
        replace(selectionStart(), static_cast<int>(selectedText().size()), {});
        return;
    }
    const int start = forward ? cursorPosition() : cursorPosition() - 1;
    if (start >= 0 && start < text().size()) replace(start, 1, {});
}

void PasswordEdit::paste() {
    QString text = QApplication::clipboard()->text();
    const qsizetype line = text.indexOf(QLatin1Char('\n'));
    if (line >= 0) text.truncate(line);
    if (!text.isEmpty()) insertAtCaret(text);
    // The content of the clipboard itself stays.
    text.fill(QChar());
}

void PasswordEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        hand_.does(field_, [this] { field_.KeyPress(key::enter); });
    } else if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::Cut) ||
               event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) {
        event->accept();
    } else if (event->key() == Qt::Key_Backspace) {
        removeAtCaret(false);
    } else if (event->key() == Qt::Key_Delete) {
        removeAtCaret(true);
    } else if (isText(event)) {
        insertAtCaret(event->text());
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

// The middle button pastes on some desktops.
void PasswordEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        event->accept();
    } else {
        QLineEdit::mouseReleaseEvent(event);
    }
}

void PasswordEdit::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
}

void PasswordEdit::dropEvent(QDropEvent* event) {
    event->ignore();
}

}  // namespace velmora::qt
