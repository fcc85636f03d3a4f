// The journal: grows at its front while it is shown, and is read again when it is shown again.
#include <QPlainTextEdit>

#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct JournalTest : WindowTest {
    JournalTest() {
        start();
        click("lblTab(2)");
    }
    QPlainTextEdit* view() { return find<QPlainTextEdit>("txtAlert"); }
    TextBox& field() { return form1().txtAlert; }
};

TEST_F(JournalTest, ShowsWhatIsPutInFrontOfIt) {
    field().setText("old\r\n");
    settle();
    field().prepend("first\r\n");
    field().prepend("second\r\nof two lines\r\n");
    settle();
    EXPECT_EQ(view()->toPlainText(), "second\nof two lines\nfirst\nold\n");
}

TEST_F(JournalTest, AnotherTextTakesTheWholeOnesPlace) {
    field().prepend("before\r\n");
    settle();
    field().prepend("lost\r\n");
    field().setText("anew");
    field().prepend("in front ");
    settle();
    EXPECT_EQ(view()->toPlainText(), "in front anew");
    field().setText("");
    settle();
    EXPECT_TRUE(view()->toPlainText().isEmpty());
}

TEST_F(JournalTest, HoldsNothingWhileItIsHidden) {
    field().setText("old\r\n");
    settle();
    click("lblTab(0)");
    EXPECT_TRUE(view()->toPlainText().isEmpty());
    field().prepend("hidden\r\n");
    settle();
    EXPECT_TRUE(view()->toPlainText().isEmpty());
    click("lblTab(2)");
    EXPECT_EQ(view()->toPlainText(), "hidden\nold\n");
    field().prepend("seen\r\n");
    settle();
    EXPECT_EQ(view()->toPlainText(), "seen\nhidden\nold\n");
}

TEST_F(JournalTest, IsOnlyRead) {
    field().setText("old");
    settle();
    QTest::keyClicks(view(), "typed");
    settle();
    EXPECT_EQ(field().Text(), "old");
    EXPECT_EQ(view()->toPlainText(), "old");
}

TEST_F(JournalTest, TheReadersPlaceStaysWhenEntriesCome) {
    QString lines;
    for (int i = 0; i < 200; ++i) lines += QStringLiteral("line %1\r\n").arg(i);
    field().setText(lines.toStdString());
    settle();
    view()->moveCursor(QTextCursor::End);
    QTextCursor cursor = view()->textCursor();
    cursor.movePosition(QTextCursor::StartOfLine);
    cursor.movePosition(QTextCursor::Up);
    cursor.select(QTextCursor::LineUnderCursor);
    view()->setTextCursor(cursor);
    const QString chosen = cursor.selectedText();
    field().prepend("new\r\n");
    settle();
    EXPECT_EQ(view()->textCursor().selectedText(), chosen);
}

}  // namespace
}  // namespace velmora::tests
