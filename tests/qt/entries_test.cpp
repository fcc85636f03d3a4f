// Widgets that take a text, a number or a time: they show the field, and what the user enters
// reaches the field with its events.
#include <QComboBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTimeEdit>
#include <QToolButton>

#include "qt/controls/entries.h"
#include "qt/surface/user_hand.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct EntriesTest : WindowTest {
    EntriesTest() { start(); }
    QLineEdit* edit(const QString& field) { return find<QLineEdit>(field); }
    void showPathAndSpace() {
        click("lblTab(0)");
        click("lblSpectab(1)");
    }
};

TEST_F(EntriesTest, ALineEditShowsWhatTheFieldHolds) {
    form1().txtDrive.setText("D:\\Überlauf");
    settle();
    EXPECT_EQ(edit("txtDrive")->text(), QStringLiteral("D:\\Überlauf"));
}

TEST_F(EntriesTest, EachKeyIsAChangeOfTheField) {
    showPathAndSpace();
    std::vector<std::string> texts;
    form1().txtDrive.setText("");
    settle();
    form1().txtDrive.Change.connect([&] { texts.push_back(form1().txtDrive.Text()); });
    QTest::keyClicks(edit("txtDrive"), "C:e");
    QTest::keyClick(edit("txtDrive"), Qt::Key_Backspace);
    EXPECT_EQ(texts, (std::vector<std::string>{"C", "C:", "C:e", "C:"}));
    EXPECT_EQ(form1().txtDrive.Text(), "C:");
}

TEST_F(EntriesTest, ProgramsTextDoesNotMoveTheCaretWhenItIsTheSame) {
    showPathAndSpace();
    edit("txtDrive")->setCursorPosition(0);
    QTest::keyClicks(edit("txtDrive"), "ab");
    settle();
    EXPECT_EQ(edit("txtDrive")->cursorPosition(), 2);
}

TEST_F(EntriesTest, ATextOfSeveralLinesIsShownAndWritten) {
    FrmNotify& form = program->forms().frmNotify;
    form.Show();
    form.txtCustMsg.setText("one\r\ntwo");
    settle();
    auto* message = find<QPlainTextEdit>("txtCustMsg", "frmNotify");
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(message->toPlainText(), "one\ntwo");
    message->moveCursor(QTextCursor::End);
    QTest::keyClick(message, Qt::Key_Return);
    QTest::keyClicks(message, "three");
    EXPECT_EQ(form.txtCustMsg.Text(), "one\r\ntwo\r\nthree");
}

TEST_F(EntriesTest, EnterIsKey13) {
    std::vector<int> keys;
    form1().txtDrive.KeyPress.connect([&](int key) { keys.push_back(key); });
    QTest::keyClick(edit("txtDrive"), Qt::Key_Return);
    QTest::keyClick(edit("txtDrive"), Qt::Key_Enter);
    EXPECT_EQ(keys, (std::vector<int>{13, 13}));
}

TEST_F(EntriesTest, ALetterInTheMinimumIsRefusedAndTheTextBecomesOne) {
    showPathAndSpace();
    edit("txtSpace")->selectAll();
    boxes.answers = {QMessageBox::Ok};
    QTest::keyClicks(edit("txtSpace"), "x");
    settle();
    ASSERT_EQ(boxes.seen.size(), 1u);
    EXPECT_EQ(boxes.seen[0].text, "Please input only numbers.");
    EXPECT_EQ(form1().txtSpace.Text(), "1");
    EXPECT_EQ(edit("txtSpace")->text(), "1");
    QTest::keyClick(edit("txtSpace"), Qt::Key_End);
    QTest::keyClicks(edit("txtSpace"), "500");
    settle();
    EXPECT_EQ(form1().txtSpace.Text(), "1500");
    EXPECT_EQ(find<QLabel>("lblMB")->text(), "1.5 MB");
}

TEST_F(EntriesTest, TheSliderScrollsIntoTheMinimum) {
    showPathAndSpace();
    boxes.answers = {QMessageBox::Ok};
    click("OpDriv(1)");
    auto* slider = find<QSlider>("Slider1");
    ASSERT_TRUE(slider->isVisible());
    EXPECT_EQ(slider->value(), 10);
    QTest::keyClick(slider, Qt::Key_Right);
    QTest::keyClick(slider, Qt::Key_PageUp);
    settle();
    EXPECT_EQ(form1().Slider1.Value(), 16);  // small step 1, large step 5
    EXPECT_EQ(edit("txtSpace")->text(), "16");

    int scrolled = 0;
    form1().Slider1.Scroll.connect([&] { ++scrolled; });
    form1().Slider1.setValue(70);
    settle();
    EXPECT_EQ(slider->value(), 70);
    EXPECT_EQ(scrolled, 0);
}

TEST_F(EntriesTest, ASpinnersArrowsTurnIt) {
    showPathAndSpace();
    form1().txtSpace.setText("100");
    settle();
    click("UpDownSpace.Up");
    click("UpDownSpace.Up");
    EXPECT_EQ(edit("txtSpace")->text(), "102");
    click("UpDownSpace.Down");
    EXPECT_EQ(edit("txtSpace")->text(), "101");
    QTest::keyClick(find<QToolButton>("UpDownSpace.Down"), Qt::Key_Space);
    settle();
    EXPECT_EQ(edit("txtSpace")->text(), "100");
}

TEST_F(EntriesTest, ASpinnersArrowsSayWhatTheyTurnAndKeepTheirSize) {
    QWidget* pair = find("UpDown1");
    ASSERT_FALSE(pair->accessibleName().isEmpty());
    EXPECT_EQ(find("UpDown1.Up")->accessibleName(), "More: " + pair->accessibleName());
    EXPECT_EQ(find("UpDown1.Down")->accessibleName(), "Less: " + pair->accessibleName());
    QWidget room;
    qt::UserHand hand;
    auto* beside = new QHBoxLayout(&room);
    QWidget* arrows = qt::makeUpDown(form1().UpDown1, hand);
    beside->addWidget(arrows);
    room.resize(300, 200);
    room.show();
    EXPECT_EQ(arrows->size(), QSize(18, 26));
}

TEST_F(EntriesTest, ATimeEditKeepsTheDateAndReportsEachChange) {
    click("lblTab(1)");
    auto* interval = find<QTimeEdit>("DTPInterval");
    EXPECT_EQ(interval->time(), QTime(0, 1, 0));  // the settings' 60 seconds
    const int day = form1().DTPInterval.Value().day;
    int changes = 0;
    form1().DTPInterval.Change.connect([&] { ++changes; });
    interval->setCurrentSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(interval, Qt::Key_Up);
    settle();
    EXPECT_EQ(form1().DTPInterval.Minute(), 2);
    EXPECT_EQ(form1().DTPInterval.Value().day, day);
    EXPECT_EQ(changes, 1);

    form1().DTPInterval.setHour(7);
    settle();
    EXPECT_EQ(interval->time(), QTime(7, 2, 0));
}

TEST_F(EntriesTest, TheCustomTimesFollowTheirCheckBox) {
    click("lblTab(1)");
    EXPECT_FALSE(find<QTimeEdit>("DTTime1(0)")->isEnabled());
    click("chkCustTime");
    EXPECT_TRUE(find<QTimeEdit>("DTTime1(0)")->isEnabled());
    EXPECT_TRUE(find<QTimeEdit>("DTTime1(1)")->isEnabled());
}

TEST_F(EntriesTest, AComboBoxOffersItsListAndTakesAnyText) {
    auto* box = find<QComboBox>("cboProg");
    int changes = 0;
    form1().cboProg.AddItem("C:\\one.exe");
    form1().cboProg.AddItem("C:\\two.exe");
    settle();
    EXPECT_EQ(box->count(), 2);
    EXPECT_TRUE(box->currentText().isEmpty());
    EXPECT_TRUE(form1().cboProg.Text().empty());

    form1().cboProg.Change.connect([&] { ++changes; });
    QTest::keyClicks(box->lineEdit(), "ab");
    EXPECT_EQ(form1().cboProg.Text(), "ab");
    EXPECT_EQ(changes, 2);
    QTest::keyClick(box, Qt::Key_Down);
    settle();
    EXPECT_EQ(form1().cboProg.Text(), box->currentText().toStdString());

    form1().cboProg.setText("C:\\three.exe");
    settle();
    EXPECT_EQ(box->currentText(), "C:\\three.exe");
    form1().cboProg.Clear();
    settle();
    EXPECT_EQ(box->count(), 0);
    EXPECT_EQ(box->currentText(), "C:\\three.exe");
    EXPECT_EQ(form1().cboProg.Text(), "C:\\three.exe");
}

TEST_F(EntriesTest, TheEntryOfAComboBoxIsSaidByTheBoxsName) {
    const auto* box = find<QComboBox>("cboProg");
    EXPECT_FALSE(box->accessibleName().isEmpty());
    EXPECT_EQ(box->lineEdit()->accessibleName(), box->accessibleName());
}

TEST_F(EntriesTest, TheEntryOfATriggerLeavesWithTheFocus) {
    auto* entry = edit("Text1");
    EXPECT_FALSE(entry->isVisible());
    form1().Text1.setVisible(true);
    form1().Text1.selectAllAndFocus();
    settle();
    ASSERT_TRUE(entry->isVisible());
    ASSERT_TRUE(entry->hasFocus());
    list()->setFocus();
    settle();
    EXPECT_FALSE(entry->isVisible());
}

}  // namespace
}  // namespace velmora::tests
