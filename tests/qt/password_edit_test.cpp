// The entry of a password: the field holds what was typed, the widget dots alone.
#include "qt/controls/password_edit.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QCursor>
#include <QProxyStyle>
#include <QTest>

#include "forms/forms.h"
#include "qt/surface/user_hand.h"

namespace velmora::tests {
namespace {

struct PasswordEditTest : testing::Test {
    Forms forms;
    qt::UserHand hand;
    TextBox& field = forms.frmLock.Text1;
    qt::PasswordEdit edit{field, hand};

    PasswordEditTest() {
        edit.show();
        QApplication::clipboard()->setText("before");
        type("geheim");
    }
    void type(const QString& keys) { QTest::keyClicks(&edit, keys); }
    /// A character by a key event, with any key and modifiers.
    void press(const QString& character, Qt::KeyboardModifiers held = {}) {
        QKeyEvent key(QEvent::KeyPress, 0, held, character);
        QApplication::sendEvent(&edit, &key);
    }
    void expect(const std::string& text, int caret) {
        EXPECT_EQ(field.Text(), text);
        EXPECT_EQ(edit.text(), QString(static_cast<qsizetype>(field.textLength()), QChar(0x25CF)));
        EXPECT_EQ(edit.cursorPosition(), caret);
    }
};

TEST_F(PasswordEditTest, TypedCharactersGoToTheFieldAlone) {
    expect("geheim", 6);
    EXPECT_EQ(edit.displayText(), edit.text());
}

TEST_F(PasswordEditTest, TypingGoesWhereTheCaretIs) {
    edit.setCursorPosition(2);
    type("XY");
    expect("geXYheim", 4);
    QTest::keyClick(&edit, Qt::Key_Home);
    type("<");
    expect("<geXYheim", 1);
}

TEST_F(PasswordEditTest, BackspaceAndDeleteRemoveTheirNeighbour) {
    edit.setCursorPosition(3);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    expect("geeim", 2);
    QTest::keyClick(&edit, Qt::Key_Delete);
    expect("geim", 2);
    edit.setCursorPosition(0);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    expect("geim", 0);
    edit.setCursorPosition(4);
    QTest::keyClick(&edit, Qt::Key_Delete);
    expect("geim", 4);
}

TEST_F(PasswordEditTest, ASelectionIsReplacedOrRemoved) {
    edit.setSelection(1, 3);
    type("Z");
    expect("gZim", 2);
    edit.setSelection(0, 2);
    QTest::keyClick(&edit, Qt::Key_Delete);
    expect("im", 0);
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Backspace);
    expect("", 0);
}

TEST_F(PasswordEditTest, CharactersOfSeveralBytesCountAsOne) {
    edit.setCursorPosition(1);
    press(QStringLiteral("ü"));
    press(QStringLiteral("€"));
    expect("gü€eheim", 3);
    edit.setCursorPosition(2);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    expect("g€eheim", 1);
    // Outside the first plane: two units of UTF-16, one character.
    press(QString::fromUtf8("😀"));
    expect("g😀€eheim", 2);
    QTest::keyClick(&edit, Qt::Key_Delete);
    expect("g😀eheim", 2);
}

TEST_F(PasswordEditTest, ACharacterOfTheAltGrKeyIsTyped) {
    press("@", Qt::ControlModifier | Qt::AltModifier);
    expect("geheim@", 7);
    press("j", Qt::ControlModifier);
    expect("geheim@", 7);
}

TEST_F(PasswordEditTest, PasteTakesTheFirstLine) {
    QApplication::clipboard()->setText("Süß\nand more");
    edit.setSelection(0, 2);
    QTest::keySequence(&edit, QKeySequence::Paste);
    expect("Süßheim", 3);
}

TEST_F(PasswordEditTest, NothingCanBeCopiedOrCut) {
    edit.selectAll();
    for (const auto keys : {QKeySequence::Copy, QKeySequence::Cut}) {
        QTest::keySequence(&edit, keys);
        EXPECT_EQ(QApplication::clipboard()->text(), "before");
        EXPECT_EQ(field.Text(), "geheim");
    }
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(2, 2), QCursor::pos());
    QApplication::sendEvent(&edit, &menu);
    EXPECT_TRUE(menu.isAccepted());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

// An entry asks its style for the keyboard of the screen when the left button comes up in it.
class AskedStyle : public QProxyStyle {
  public:
    mutable int questions = 0;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        if (hint == SH_RequestSoftwareInputPanel) ++questions;
        return QProxyStyle::styleHint(hint, option, widget, more);
    }
};

TEST_F(PasswordEditTest, TheLeftButtonReachesTheEntry) {
    AskedStyle style;
    edit.setStyle(&style);
    QTest::mouseClick(&edit, Qt::LeftButton);
    EXPECT_EQ(style.questions, 1);
    edit.setStyle(nullptr);
}

TEST_F(PasswordEditTest, NoOtherWayOfEditingLeavesDotsWithoutCharacters) {
    edit.setCursorPosition(3);
    for (const auto& keys : {QKeySequence(Qt::CTRL | Qt::Key_K), QKeySequence(Qt::CTRL | Qt::Key_U),
                             QKeySequence(QKeySequence::Undo), QKeySequence(QKeySequence::Redo),
                             QKeySequence(QKeySequence::DeleteEndOfWord),
                             QKeySequence(QKeySequence::DeleteStartOfWord)}) {
        QTest::keySequence(&edit, keys);
        EXPECT_EQ(static_cast<std::size_t>(edit.text().size()), field.textLength())
            << keys.toString().toStdString();
    }
    edit.setCursorPosition(1);
    edit.del();
    EXPECT_EQ(static_cast<std::size_t>(edit.text().size()), field.textLength());
    const std::string present = field.Text();
    edit.insert("clear text");
    EXPECT_EQ(static_cast<std::size_t>(edit.text().size()), field.textLength());
    EXPECT_FALSE(edit.text().contains("clear"));
    EXPECT_EQ(field.Text(), present.substr(0, 1) + "clear text" + present.substr(1));
    EXPECT_EQ(QApplication::clipboard()->text(), "before");
}

TEST_F(PasswordEditTest, WhatAnAssistiveToolSetsReachesTheField) {
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&edit);
    seen->setText(QAccessible::Value, "secret");
    expect("secret", 6);
    const QString dots(6, QChar(0x25CF));
    seen->setText(QAccessible::Value, dots.left(2) + QString::fromUtf8("X\xc3\xa4") + dots.mid(2));
    expect(
        "seX\xc3\xa4"
        "cret",
        4);
    seen->setText(QAccessible::Value, dots.left(1) + "o" + dots.left(1));
    expect("sot", 2);
    seen->setText(QAccessible::Value, dots.left(5) + "q");
    expect("sotq", 4);
    seen->setText(QAccessible::Value, dots.left(2));
    expect("sotq", 2);
}

TEST_F(PasswordEditTest, TheFieldClearedByTheProgramShowsEmpty) {
    field.setText("");
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
    expect("", 0);
}

}  // namespace
}  // namespace velmora::tests
