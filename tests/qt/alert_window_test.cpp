// The alert dialog: what it shows, and what its buttons do to it.
#include <QGroupBox>
#include <QScreen>

#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct AlertWindowTest : WindowTest {
    AlertWindowTest() {
        start();
        form().Label1.setText("03/14/26 15:09:26 - ALERT: Space Shortage\r\n . \r\n");
        form1().mnuShowAlert.Click();
        settle();
    }
    DlgAlert& form() { return program->forms().dlgAlert; }
    QWidget* dialog() { return program->window("dlgAlert"); }
    void press(const QString& field) { click(field, "dlgAlert"); }
    QGroupBox* options() { return find<QGroupBox>("fraAct", "dlgAlert"); }
};

TEST_F(AlertWindowTest, ItOpensInItsSmallSizeWithItsButtonsInView) {
    EXPECT_EQ(dialog()->windowTitle(), "Alert Dialog");
    EXPECT_FALSE(options()->isVisible());
    for (const char* field :
         {"lblAl(0)", "lblAl(1)", "lblAl(2)", "lblAl(4)", "chkAutoHide", "chkLog"}) {
        QWidget* widget = find(QString::fromLatin1(field), "dlgAlert");
        ASSERT_NE(widget, nullptr) << field;
        EXPECT_TRUE(widget->isVisible()) << field;
        EXPECT_TRUE(dialog()->rect().contains(widget->geometry())) << field;
    }
}

TEST_F(AlertWindowTest, ActionBringsTheOptionsIntoViewAndTheWindowGrows) {
    const int folded = dialog()->height();
    press("lblAl(4)");
    EXPECT_TRUE(options()->isVisible());
    EXPECT_EQ(dialog()->height(), 547);  // 8200 twips
    EXPECT_GT(dialog()->height(), folded);
    EXPECT_TRUE(find("lblAl(3)", "dlgAlert")->isVisible());
}

TEST_F(AlertWindowTest, AnOptionSaysWhatItWouldDo) {
    press("lblAl(4)");
    auto* suggestion = find<QLabel>("lblSuggest", "dlgAlert");
    ASSERT_NE(suggestion, nullptr);
    EXPECT_EQ(suggestion->text(), "");
    press("lblAct(3)");
    EXPECT_EQ(suggestion->text(), "You can select files to be deleted to free up space.");
    press("lblAct(2)");
    EXPECT_EQ(suggestion->text(),
              "You can select to attempt to clear any files in the recycle bin.");
}

TEST_F(AlertWindowTest, OkHidesItAndTheTextStays) {
    press("lblAl(0)");
    EXPECT_FALSE(dialog()->isVisible());
    EXPECT_FALSE(form().Label1.empty());
}

TEST_F(AlertWindowTest, ClearEmptiesItsTextOnly) {
    form1().txtAlert.setText("journal");
    press("lblAl(1)");
    EXPECT_TRUE(form().Label1.empty());
    EXPECT_EQ(form1().txtAlert.Text(), "journal");
}

TEST_F(AlertWindowTest, ItIsInTheCornerOfTheScreenWheneverItIsShown) {
    const QPoint corner = QGuiApplication::primaryScreen()->availableGeometry().bottomRight();
    EXPECT_EQ(dialog()->frameGeometry().bottomRight(), corner);
    dialog()->move(5, 5);
    settle();
    // A change of its caption leaves it where the user has put it.
    form().setCaption("Alert");
    settle();
    EXPECT_EQ(dialog()->pos(), QPoint(5, 5));
    form1().mnuShowAlert.Click();
    settle();
    EXPECT_EQ(dialog()->frameGeometry().bottomRight(), corner);
}

TEST_F(AlertWindowTest, InItsSmallSizeAgainItIsBackInTheCorner) {
    const QPoint corner = QGuiApplication::primaryScreen()->availableGeometry().bottomRight();
    const int folded = dialog()->height();
    press("lblAl(4)");
    EXPECT_EQ(dialog()->frameGeometry().bottomRight(), corner);
    form1().mnuShowAlert.Click();
    settle();
    EXPECT_EQ(dialog()->height(), folded);
    EXPECT_EQ(dialog()->frameGeometry().bottomRight(), corner);
}

TEST_F(AlertWindowTest, EscapeHidesIt) {
    QTest::keyClick(dialog(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(form().Visible());
    EXPECT_FALSE(dialog()->isVisible());
}

TEST_F(AlertWindowTest, TheCountdownIsInItsTitle) {
    press("chkAutoHide");
    EXPECT_TRUE(form().Timer1.Enabled());
    form().Timer1.Tick();
    settle();
    EXPECT_EQ(dialog()->windowTitle(), "Auto Dismiss Alert Window in (sec.): 10");
    press("chkAutoHide");
    EXPECT_EQ(dialog()->windowTitle(), "Alert Dialog");
}

TEST_F(AlertWindowTest, TranslucentMakesItHalfSo) {
    press("chkLog");
    EXPECT_NEAR(dialog()->windowOpacity(), 0.5, 0.01);
    press("chkLog");
    EXPECT_NEAR(dialog()->windowOpacity(), 1.0, 0.01);
}

}  // namespace
}  // namespace velmora::tests
