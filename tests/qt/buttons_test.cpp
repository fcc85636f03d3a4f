// Widgets that are clicked or ticked, and the bars and menus around them.
#include <QCheckBox>
#include <QListWidget>
#include <QRadioButton>
#include <QToolButton>

#include "qt/controls/check_list.h"
#include "qt/controls/label_button.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct ButtonsTest : WindowTest {
    ButtonsTest() { start(); }

    void tickByMouse(qt::CheckList* list, int row) {
        list->scrollToItem(list->item(row));
        const QRect place = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          place.topLeft() + QPoint(10, place.height() / 2));
        settle();
    }
    std::vector<int> tickedIn(const ListBox& box, qt::CheckList* list) {
        std::vector<int> rows;
        for (int i = 0; i < box.ListCount(); ++i) {
            if (box.Selected(i)) rows.push_back(i);
            EXPECT_EQ(list->item(i)->checkState() == Qt::Checked, box.Selected(i)) << i;
        }
        return rows;
    }
};

TEST_F(ButtonsTest, ACheckBoxFollowsItsFieldBothWays) {
    click("lblTab(3)");
    auto* box = find<QCheckBox>("chkLogTimeMon");
    click("chkLogTimeMon");
    EXPECT_TRUE(form1().chkLogTimeMon.ticked());
    EXPECT_TRUE(box->isChecked());
    form1().chkLogTimeMon.setValue(0);
    settle();
    EXPECT_FALSE(box->isChecked());
}

TEST_F(ButtonsTest, ACheckBoxThatAHandlerUndoesShowsTheField) {
    click("lblTab(3)");
    CheckBox& field = form1().chkSeq;
    bool undoing = false;
    field.Click.connect([&] {
        if (std::exchange(undoing, true)) return;
        field.setValue(0);
    });
    click("lblTab(1)");
    click("chkSeq");
    EXPECT_EQ(field.Value(), 0);
    EXPECT_FALSE(find<QCheckBox>("chkSeq")->isChecked());
}

TEST_F(ButtonsTest, ACheckBoxWhoseClickIsRefusedShowsTheField) {
    click("lblTab(1)");
    form1().chkSeq.setEnabled(false);  // not shown as disabled yet
    QTest::mouseClick(find<QCheckBox>("chkSeq"), Qt::LeftButton);
    settle();
    EXPECT_EQ(form1().chkSeq.Value(), 0);
    EXPECT_FALSE(find<QCheckBox>("chkSeq")->isChecked());
    EXPECT_FALSE(find<QCheckBox>("chkSeq")->isEnabled());
}

TEST_F(ButtonsTest, OneOfTheOptionPairIsSetAlways) {
    click("lblSpectab(1)");
    form1().txtSpace.setText("40");
    settle();
    const auto expect = [&](bool first) {
        EXPECT_EQ(find<QRadioButton>("OpDriv(0)")->isChecked(), first);
        EXPECT_EQ(find<QRadioButton>("OpDriv(1)")->isChecked(), !first);
        EXPECT_EQ(form1().OpDriv[0].Value(), first);
    };
    expect(true);
    click("OpDriv(1)");
    expect(false);
    click("OpDriv(1)");  // a second click leaves it set
    expect(false);
    form1().OpDriv[0].choose();
    settle();
    expect(true);
}

TEST_F(ButtonsTest, AnEntryOfACheckListIsTickedOnceByMouseOrKey) {
    click("lblTab(1)");
    auto* list = find<qt::CheckList>("lstAct");
    std::vector<int> checks;
    int clicks = 0;
    form1().lstAct.ItemCheck.connect([&](int index) { checks.push_back(index); });
    form1().lstAct.Click.connect([&] { ++clicks; });
    tickByMouse(list, 3);
    EXPECT_EQ(checks, std::vector<int>{3});
    EXPECT_EQ(clicks, 1);
    list->setCurrentRow(5);
    QTest::keyClick(list, Qt::Key_Space);
    settle();
    EXPECT_EQ(checks, (std::vector<int>{3, 5}));
    EXPECT_EQ(tickedIn(form1().lstAct, list), (std::vector<int>{3, 5}));
    form1().lstAct.setSelected(act::recycle, false);
    settle();
    EXPECT_EQ(tickedIn(form1().lstAct, list), std::vector<int>{5});
}

TEST_F(ButtonsTest, ARuleOfACheckListShowsAtOnce) {
    click("lblTab(1)");
    auto* list = find<qt::CheckList>("lstAct");
    tickByMouse(list, 1);
    EXPECT_EQ(tickedIn(form1().lstAct, list), std::vector<int>{1});
    boxes.answers = {QMessageBox::Ok};
    tickByMouse(list, 2);
    EXPECT_EQ(boxes.lastText(), "The 'Move Specified files' option will be de-selected");
    EXPECT_EQ(tickedIn(form1().lstAct, list), std::vector<int>{2});
}

TEST_F(ButtonsTest, ALabelButtonReportsPressReleaseAndClickAndShowsItsColours) {
    std::vector<std::string> events;
    Label& label = form1().lblDP[watch_button::refresh];
    label.MouseDown.connect([&] { events.push_back("down"); });
    label.MouseUp.connect([&] { events.push_back("up"); });
    label.Click.connect([&] { events.push_back("click"); });
    auto* button = find<qt::LabelButton>("lblDP(4)");
    const QImage before = button->grab().toImage();
    QTest::mousePress(button, Qt::LeftButton);
    settle();
    EXPECT_EQ(label.ForeColor(), 0xE0E0E0u);
    EXPECT_NE(button->grab().toImage(), before);
    QTest::mouseRelease(button, Qt::LeftButton);
    settle();
    EXPECT_EQ(label.ForeColor(), 33023u);
    EXPECT_EQ(events, (std::vector<std::string>{"down", "up", "click"}));
    QTest::keyClick(button, Qt::Key_Return);
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(events.size(), 9u);
}

TEST_F(ButtonsTest, ThePictureOfALabelButtonIsInItsMiddle) {
    const QImage face = find<qt::LabelButton>("lblDP(0)")->grab().toImage();
    // Within the outline there is the picture alone.
    constexpr int edge = 5;
    const QRect inside = face.rect().adjusted(edge, edge, -edge, -edge);
    const QColor ground = face.pixelColor(inside.left(), face.height() / 2);
    QRect picture;
    for (int x = inside.left(); x <= inside.right(); ++x) {
        for (int y = inside.top(); y <= inside.bottom(); ++y) {
            if (face.pixelColor(x, y) != ground) picture |= QRect(x, y, 1, 1);
        }
    }
    EXPECT_FALSE(picture.isEmpty());
    EXPECT_NEAR(picture.center().x(), face.rect().center().x(), 3);
    EXPECT_NEAR(picture.center().y(), face.rect().center().y(), 3);
}

TEST_F(ButtonsTest, ADisabledFieldsWidgetDoesNothing) {
    int clicks = 0;
    form1().cmdPause.Click.connect([&] { ++clicks; });
    form1().cmdPause.setEnabled(false);
    settle();
    click("cmdPause");
    EXPECT_EQ(clicks, 0);
    form1().cmdPause.setEnabled(true);
    settle();
    click("cmdPause");
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonsTest, CaptionsToolTipsAndVisibilityFollowTheField) {
    form1().cmdPause.setCaption("Elsewhere");
    form1().cmdPause.setToolTipText("A word");
    settle();
    EXPECT_EQ(find<QPushButton>("cmdPause")->text(), "Elsewhere");
    EXPECT_EQ(find("cmdPause")->toolTip(), "A word");
    form1().cmdPause.setVisible(false);
    settle();
    EXPECT_FALSE(find("cmdPause")->isVisible());
}

TEST_F(ButtonsTest, TheStatusBarShowsTextsAndThePictureOfTheFirstPanel) {
    for (int i = 1; i <= 3; ++i) {
        form1().StatusBar1.setPanelText(i, "panel ", std::to_string(i));
    }
    form1().StatusBar1.setPanelPicture(1, 14);
    settle();
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(find(QStringLiteral("StatusBar1(%1)").arg(i))->property("text").toString(),
                  QStringLiteral("panel %1").arg(i));
    }
    const auto pictures = find("StatusBar1")->findChildren<QLabel*>();
    ASSERT_EQ(pictures.size(), 1);
    EXPECT_TRUE(pictures[0]->isVisible());
    form1().StatusBar1.setPanelPicture(1, 0);
    settle();
    EXPECT_FALSE(pictures[0]->isVisible());
}

TEST_F(ButtonsTest, TheToolBarsCaptionsComeWithTheirPictures) {
    auto* button = find<QToolButton>("Toolbar1(1)");
    const auto picture = [&] { return button->icon().pixmap(24, 24).toImage(); };
    form1().Toolbar1.setButtonCaption(1, "Start");
    settle();
    const QImage start = picture();
    form1().Toolbar1.setButtonCaption(1, "Pause");
    settle();
    EXPECT_EQ(button->text(), "Pause");
    EXPECT_NE(picture(), start);
    EXPECT_EQ(button->toolTip(), "Activate/Pause the Velmora Timer to check drive/path(s)");
}

TEST_F(ButtonsTest, AMenusTicksAndCaptionsAreTheProgramsAlone) {
    form1().mnuLock.setCaption("Another &word");
    form1().mnuPause.setChecked(true);
    settle();
    EXPECT_EQ(action("mnuLock")->text(), "Another &word");
    EXPECT_TRUE(action("mnuPause")->isChecked());
    // No handler unticks it: the click alone must not tick it.
    form1().mnuSorbane.setChecked(true);
    settle();
    chooseFunction("mnuSorbane");
    EXPECT_TRUE(action("mnuSorbane")->isChecked());
    form1().mnuSorbane.setEnabled(false);
    form1().mnuRecyc.setVisible(false);
    settle();
    EXPECT_FALSE(action("mnuSorbane")->isEnabled());
    EXPECT_FALSE(action("mnuRecyc")->isVisible());
}

TEST_F(ButtonsTest, AClosedMenuReportsToItsField) {
    int closed = 0;
    form1().mnuPopUp.Closed.connect([&] { ++closed; });
    onIcon(QSystemTrayIcon::Context);
    ASSERT_TRUE(menu("mnuPopUp")->isVisible());
    QTest::keyClick(menu("mnuPopUp"), Qt::Key_Escape);
    settle();
    EXPECT_EQ(closed, 1);
}

TEST_F(ButtonsTest, AClickOnAnEntrysWordsIsOneClickWithoutATick) {
    click("lblTab(1)");
    auto* list = find<QListWidget>("lstAct");
    int clicks = 0;
    form1().lstAct.Click.connect([&clicks] { ++clicks; });
    const QRect entry = list->visualItemRect(list->item(5));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      {entry.left() + 60, entry.center().y()});
    settle();
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(form1().lstAct.Selected(act::sound));
    // A tick clicks too, once.
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      {entry.left() + 10, entry.center().y()});
    settle();
    EXPECT_EQ(clicks, 2);
    EXPECT_TRUE(form1().lstAct.Selected(act::sound));
}

}  // namespace
}  // namespace velmora::tests
