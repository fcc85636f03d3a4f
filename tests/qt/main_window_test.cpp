// The frame of the main window, by clicks on its own widgets.
#include <QScrollArea>
#include <QStyle>
#include <QToolButton>

#include "qt/controls/legible_style.h"
#include "qt/icons/glyph.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

constexpr int fullHeight = 9100;  // twips

struct MainWindowTest : WindowTest {
    MainWindowTest() { start(); }
    bool pageIsShown(int panel) {
        return find(QStringLiteral("frmSp(%1)").arg(panel))->isVisible();
    }
};

TEST_F(MainWindowTest, AButtonsCaptionIsTheKeyOfItsCommand) {
    ASSERT_EQ(form1().Height(), fullHeight);
    for (const char* caption : {"View -", "View +", "A View"}) {
        const bool full = form1().Height() == fullHeight;
        form1().Toolbar1.setButtonCaption(6, caption);
        click("Toolbar1(6)");
        EXPECT_EQ(form1().Height() == fullHeight, !full) << caption;
    }
    form1().Toolbar1.setButtonCaption(6, "Adv. Info");
    click("Toolbar1(6)");
    EXPECT_TRUE(program->forms().dlgDriveInfo.Visible());
}

TEST_F(MainWindowTest, TheViewButtonReturnsFromTheCompactViewToTheFullHeightExactly) {
    click("Toolbar1(5)");
    EXPECT_LT(form1().Height(), fullHeight);
    EXPECT_FALSE(find("Frame5")->isVisible());
    EXPECT_FALSE(find("Frame1")->isVisible());
    EXPECT_EQ(find<QToolButton>("Toolbar1(5)")->text(), "View +");
    const int compact = window()->height();

    click("Toolbar1(5)");
    EXPECT_EQ(form1().Height(), fullHeight);
    EXPECT_EQ(window()->height(), 607);  // 9100 twips, 15 a pixel
    EXPECT_TRUE(find("Frame5")->isVisible());
    EXPECT_TRUE(find("Frame1")->isVisible());
    EXPECT_EQ(find<QToolButton>("Toolbar1(5)")->text(), "View -");

    click("Toolbar1(5)");
    EXPECT_EQ(window()->height(), compact);
}

TEST_F(MainWindowTest, SetProgramSettingsOpensTheFullViewOrSaysThatItIsOpen) {
    click("Toolbar1(5)");
    chooseFunction("mnuProgSet");
    EXPECT_EQ(form1().Height(), fullHeight);
    EXPECT_TRUE(boxes.seen.empty());

    boxes.answers = {QMessageBox::Ok};
    chooseFunction("mnuProgSet");
    EXPECT_EQ(boxes.lastText(), "The program settings and options are already shown.");
    EXPECT_EQ(boxes.seen.back().icon, QMessageBox::Information);
    EXPECT_EQ(form1().Height(), fullHeight);
}

TEST_F(MainWindowTest, AlertsAndConfigurationShowEachOthersPanel) {
    click("lblTab(2)");
    EXPECT_TRUE(pageIsShown(3));
    EXPECT_FALSE(pageIsShown(2));
    EXPECT_EQ(find<QLabel>("lblTabCap")->text(), "Program Alert Logs");
    click("lblTab(3)");
    EXPECT_TRUE(pageIsShown(2));
    EXPECT_FALSE(pageIsShown(3));
    EXPECT_EQ(find<QLabel>("lblTabCap")->text(), "Configurations (Program UI Settings)");
}

TEST_F(MainWindowTest, AWindowDraggedTooNarrowSnapsBack) {
    window()->resize(900, 640);
    settle();
    EXPECT_EQ(form1().Width(), 900 * 15);
    for (const int width : {537, 400, 100}) {
        window()->resize(width, 640);
        settle();
        EXPECT_EQ(form1().Width(), 8070) << width;
        EXPECT_EQ(window()->width(), 538) << width;
    }
}

TEST_F(MainWindowTest, HideTwiceRestoresTheWindowAndClearsTheTick) {
    chooseFromIcon("mnuHide");
    EXPECT_TRUE(action("mnuHide")->isChecked());
    EXPECT_TRUE(!window()->isVisible() || window()->isMinimized());

    chooseFromIcon("mnuHide");
    EXPECT_FALSE(action("mnuHide")->isChecked());
    EXPECT_TRUE(window()->isVisible());
    EXPECT_FALSE(window()->isMinimized());
}

TEST_F(MainWindowTest, ClosingWithoutANotificationAreaMinimisesAndSaysSoUntilItWasRead) {
    ASSERT_FALSE(program->notifyArea().available());
    window()->close();
    settle();
    EXPECT_TRUE(window()->isVisible());
    EXPECT_TRUE(window()->isMinimized());

    window()->showNormal();
    settle();
    EXPECT_EQ(form1().State(), WindowState::normal);
    auto* note = find<QLabel>("lblTrayNote");
    ASSERT_NE(note, nullptr);
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->text().toStdString(), form1().lblTrayNote.Caption());
    // Whole, on as many lines as it needs.
    EXPECT_GE(note->height(), note->heightForWidth(note->width()));
    EXPECT_TRUE(window()->rect().contains(
        QRect(find("cmdTrayNote")->mapTo(window(), QPoint()), find("cmdTrayNote")->size())));

    click("cmdTrayNote");
    EXPECT_FALSE(note->isVisible());
    window()->close();
    settle();
    EXPECT_TRUE(window()->isMinimized());
    window()->showNormal();
    settle();
    EXPECT_FALSE(note->isVisible());
    EXPECT_FALSE(ended);
}

TEST_F(MainWindowTest, AMaximisedWindowReportsToItsFormAndTheViewButtonMakesItNormal) {
    window()->showMaximized();
    settle();
    EXPECT_EQ(form1().State(), WindowState::maximised);
    click("Toolbar1(5)");
    EXPECT_EQ(form1().State(), WindowState::normal);
    EXPECT_FALSE(window()->isMaximized());
}

// The view goes by the size of the normal state, not by that of the screen.
TEST_F(MainWindowTest, FromTheFullViewAMaximisedWindowBecomesCompactAndBackAgain) {
    ASSERT_EQ(form1().Height(), 9100);
    window()->showMaximized();
    settle();
    ASSERT_NE(form1().Height(), 9100);
    click("Toolbar1(5)");
    EXPECT_EQ(form1().Toolbar1.Buttons(tool::view).Caption, "View +");
    EXPECT_FALSE(form1().Frame1.Visible());
    EXPECT_FALSE(window()->isMaximized());
    EXPECT_LT(form1().Height(), 9100);

    window()->showMaximized();
    settle();
    click("Toolbar1(5)");
    EXPECT_EQ(form1().Toolbar1.Buttons(tool::view).Caption, "View -");
    EXPECT_EQ(form1().Height(), 9100);
}

TEST_F(MainWindowTest, TheButtonBesideTheLineOpensTheWizard) {
    click("cmdSetUp");
    EXPECT_TRUE(program->forms().frmWizard.Visible());
}

TEST_F(MainWindowTest, ALargeWindowGivesItsRoomToTheWatchListAndNotToText) {
    window()->resize(538, 607);
    settle();
    const int height = find("ListView1")->height();
    window()->resize(1600, 1000);
    for (int page = 0; page < 5; ++page) {
        click(QStringLiteral("lblTab(%1)").arg(page));
        settle();
        EXPECT_GT(find("ListView1")->height(), height) << page;
        for (const auto* area : window()->findChildren<QScrollArea*>()) {
            if (!area->isVisible() || area->accessibleName() != "Page") continue;
            EXPECT_LE(area->widget()->width(), 960) << page;
        }
    }
}

TEST_F(MainWindowTest, MessageBoxesHaveTheProgramsOwnPictures) {
    const std::pair<QStyle::StandardPixmap, qt::Glyph> pictures[] = {
        {QStyle::SP_MessageBoxQuestion, qt::Glyph::question},
        {QStyle::SP_MessageBoxInformation, qt::Glyph::information},
        {QStyle::SP_MessageBoxWarning, qt::Glyph::stateAlert},
        {QStyle::SP_MessageBoxCritical, qt::Glyph::critical}};
    const qt::LegibleStyle style;
    for (const auto& [picture, glyph] : pictures) {
        EXPECT_EQ(style.standardIcon(picture, nullptr, nullptr).pixmap(32).toImage(),
                  qt::glyphIcon(glyph).pixmap(32).toImage())
            << picture;
    }
}

TEST_F(MainWindowTest, PicturesAtTheRightHaveWordsWhereThereIsRoom) {
    const auto isWorded = [this](const char* name) {
        return find<QToolButton>(name)->toolButtonStyle() == Qt::ToolButtonTextUnderIcon;
    };
    const char* names[] = {"mnuPopUp.Button", "Command9", "Command6"};
    window()->resize(639, 607);
    settle();
    for (const char* name : names) EXPECT_FALSE(isWorded(name)) << name;
    window()->resize(640, 607);
    settle();
    for (const char* name : names) {
        EXPECT_TRUE(isWorded(name)) << name;
        EXPECT_GE(find(name)->width(), find(name)->sizeHint().width()) << name;
    }
    EXPECT_EQ(find<QToolButton>("Command6")->text(), "Exit");
}

}  // namespace
}  // namespace velmora::tests
