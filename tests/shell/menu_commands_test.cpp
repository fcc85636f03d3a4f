// The items of the main window's menus.
#include "rows/alert_row.h"
#include "shell/command_rig.h"

namespace velmora::tests {
namespace {

TEST(TrayMenu, AboutShowsTheAboutBox) {
    CommandRig rig;
    rig.form1.mnuAbout.userClick();
    EXPECT_EQ(rig.shown, Texts{"frmAbout"});
    EXPECT_TRUE(rig.forms.frmAbout.Timer1.Enabled());
}

TEST(TrayMenu, ContentsOpensTheMakersHelpPageInANormalWindow) {
    CommandRig rig;
    rig.form1.mnuContent.userClick();
    EXPECT_EQ(rig.orders(), Texts{"Form1 open http://velmora.example/velmora/help"});
    EXPECT_EQ(rig.machine.executed[0].showCommand, 1);
    EXPECT_EQ(rig.machine.executed[0].parameters, "");
    EXPECT_EQ(rig.machine.executed[0].directory, "");
}

TEST(TrayMenu, ProgramWebpageOpensTheMakersPage) {
    CommandRig rig;
    rig.form1.mnuPWP.userClick();
    EXPECT_EQ(rig.orders(), Texts{"Form1 open http://velmora.example/velmora/"});
}

TEST(TrayMenu, HideHidesTheWindowAndASecondClickShowsItUnchecked) {
    CommandRig rig;
    rig.form1.mnuHide.userClick();
    EXPECT_FALSE(rig.form1.Visible());
    EXPECT_TRUE(rig.form1.mnuHide.Checked());
    rig.form1.mnuHide.userClick();
    EXPECT_TRUE(rig.form1.Visible());
    EXPECT_FALSE(rig.form1.mnuHide.Checked());
}

TEST(TrayMenu, LockPreparesTheLockClearsItsEntryAndShowsIt) {
    CommandRig rig;
    FrmLock& lock = rig.forms.frmLock;
    rig.forms.globals.bLocked = true;
    lock.Text1.setText("old");
    rig.form1.mnuLock.userClick();
    EXPECT_EQ(lock.Command1[0].Caption(), "Unlock");
    EXPECT_EQ(lock.lblLock.Caption(), "The program is Locked.  Enter password to unlock.");
    EXPECT_EQ(lock.Text1.Text(), "");
    EXPECT_TRUE(lock.Visible());
}

TEST(TrayMenu, TheLocksEntryIsEmptiedOnceMoreAfterItWasPreparedAndThenTheLockIsShown) {
    CommandRig rig;
    FrmLock& lock = rig.forms.frmLock;
    // As if the user typed into the lock while it is prepared.
    lock.Shown.connect([&] { lock.Text1.setText("early"); });
    Texts steps;
    lock.Text1.Change.connect([&] { steps.push_back("entry " + lock.Text1.Text()); });
    lock.Raised.connect([&] { steps.push_back("shown"); });
    rig.form1.mnuLock.userClick();
    EXPECT_EQ(steps, (Texts{"entry early", "shown", "entry ", "shown"}));
}

TEST(TrayMenu, TheHelpMenuItselfDoesNothing) {
    CommandRig rig;
    rig.form1.mnuHelp.userClick();
    EXPECT_TRUE(rig.shown.empty());
    EXPECT_TRUE(rig.machine.executed.empty());
}

TEST(ListMenu, ExploreOpensEverySelectedRow) {
    CommandRig rig;
    rig.rows({"C:\\", "D:\\data", "E:\\"});
    rig.list.userSelect({1, 2});
    rig.form1.mnuExplore.userClick();
    EXPECT_EQ(rig.orders(), (Texts{"Form1 explore C:\\", "Form1 explore D:\\data"}));
    EXPECT_EQ(rig.machine.executed[1].showCommand, 1);
}

TEST(ListMenu, AFailedExploreIsNotReportedAndTheNextRowFollows) {
    CommandRig rig;
    rig.machine.executes = false;
    rig.rows({"C:\\", "D:\\"});
    rig.list.userSelect({1, 2});
    rig.form1.mnuExplore.userClick();
    EXPECT_EQ(rig.orders().size(), 2u);
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.form1.LVAlert.Count(), 0);
}

TEST(ListMenu, SetParametersShowsTheRowsDriveAndThenItsGauges) {
    CommandRig rig;
    rig.rows({"C:\\", "D:\\"});
    WatchRow row(rig.list.ListItems(2));
    row.setFreeSpace("25 KB");
    row.setTotalSize("100 KB");
    FrmIndDri& view = rig.forms.frmIndDri;
    int figuresWhenShown = -1;
    view.Raised.connect([&] { figuresWhenShown = view.ListView1.Count(); });
    rig.form1.mnuParam.userClick();
    EXPECT_EQ(rig.shown, Texts{"frmIndDri"});
    EXPECT_EQ(view.lblP.Caption(), "D:\\");
    EXPECT_EQ(figuresWhenShown, 0);
    EXPECT_EQ(view.ListView1.ListItems(1).SubItems(1), "100 KB");
}

TEST(ListMenu, RemoveClicksTheRemoveButton) {
    CommandRig rig;
    int clicked = 0;
    counted(rig.form1.cmdLVRemove.Click, clicked);
    rig.form1.mnuRemove.userClick();
    EXPECT_EQ(clicked, 1);
}

TEST(ListMenu, ShowInfoOpensThePropertiesOfTheRow) {
    CommandRig rig;
    rig.rows({"C:\\", "D:\\data"});
    rig.form1.mnuInfo.userClick();
    EXPECT_EQ(rig.orders(), Texts{"Form1 properties D:\\data"});
}

TEST(ListMenu, WithNoRowSelectedNothingHappens) {
    CommandRig rig;
    for (int pass = 0; pass < 2; ++pass) {
        for (MenuItem* item : {&rig.form1.mnuExplore, &rig.form1.mnuParam, &rig.form1.mnuInfo}) {
            EXPECT_NO_THROW(item->userClick());
        }
        rig.list.Add("C:\\");
    }
    EXPECT_TRUE(rig.shown.empty());
    EXPECT_TRUE(rig.machine.executed.empty());
}

TEST(FunctionsMenu, ProgramSettingsActLikeTheViewButtonBelow9100) {
    CommandRig rig;
    for (const int height : {4000, 9099}) {
        rig.form1.setSize(9000, height);
        rig.form1.mnuProgSet.userClick();
        EXPECT_EQ(rig.form1.Height(), 9100);
        EXPECT_TRUE(rig.host.boxes.empty());
    }
}

TEST(FunctionsMenu, ProgramSettingsClickTheFifthButtonOfTheToolBar) {
    CommandRig rig;
    rig.layout.toggleView();
    std::vector<int> clicked;
    rig.form1.Toolbar1.ButtonClick.connect([&](int index) { clicked.push_back(index); });
    rig.form1.mnuProgSet.userClick();
    EXPECT_EQ(clicked, std::vector<int>{5});
}

TEST(FunctionsMenu, ProgramSettingsOnlyShowAMessageFrom9100On) {
    for (const int height : {9100, 9101, 12000}) {
        CommandRig rig;
        rig.form1.setSize(9000, height);
        rig.form1.mnuProgSet.userClick();
        EXPECT_EQ(rig.form1.Height(), height);
        ASSERT_EQ(rig.host.boxes.size(), 1u);
        EXPECT_EQ(rig.host.boxes[0].text, "The program settings and options are already shown.");
        EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::information);
        EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::ok);
    }
}

TEST(FunctionsMenu, ShowRecycleBinShowsItsView) {
    CommandRig rig;
    rig.form1.mnuRecyc.userClick();
    EXPECT_EQ(rig.orders(), Texts{"Icon1 open Explorer"});
    EXPECT_EQ(rig.machine.executed[0].parameters, "::{645FF040-5081-101B-9F08-00AA002F954E}");
}

TEST(FunctionsMenu, DefragUtilityStartsTheSystemsOwn) {
    CommandRig rig;
    rig.machine.environment["windir"] = "D:\\Win";
    rig.form1.mnuDefrag.userClick();
    EXPECT_EQ(rig.orders(), Texts{"Form1 open D:\\Win\\system32\\dfrg.msc"});
}

TEST(FunctionsMenu, EmptyRecycleBinEmptiesAllDrivesAndRaisesAnAlert) {
    CommandRig rig;
    rig.form1.mnuEmptyRecyc.userClick();
    ASSERT_EQ(rig.machine.emptied.size(), 1u);
    EXPECT_EQ(rig.machine.emptied[0].root, "");
    EXPECT_EQ(rig.machine.emptied[0].flags, 0u);
    ASSERT_EQ(rig.form1.LVAlert.Count(), 1);
    const ConstAlertRow alert(rig.form1.LVAlert.ListItems(1));
    EXPECT_EQ(alert.rating(), "Medium");
    EXPECT_EQ(alert.time(), "20260314 15:09:26");
    EXPECT_EQ(alert.text(), "User cleared recycle bin");
}

TEST(FunctionsMenu, AFailedEmptyingIsIgnored) {
    CommandRig rig;
    rig.machine.log.failCall(1, 5);
    rig.form1.mnuEmptyRecyc.userClick();
    EXPECT_EQ(ConstAlertRow(rig.form1.LVAlert.ListItems(1)).text(), "User cleared recycle bin");
}

TEST(FunctionsMenu, AnErrorOfTheAlertBecomesAnAlert) {
    CommandRig rig;
    rig.forms.globals.lngAlertsRaised = 2147483647;
    EXPECT_NO_THROW(rig.form1.mnuEmptyRecyc.userClick());
    ASSERT_EQ(rig.form1.LVAlert.Count(), 2);
    const ConstAlertRow alert(rig.form1.LVAlert.ListItems(1));
    EXPECT_EQ(alert.rating(), "Medium");
    EXPECT_EQ(alert.time(), "20260314 15:09:26");
    EXPECT_EQ(alert.text(), "Error on Command  Overflow");
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(FunctionsMenu, NotificationShowsTheMailSettingsAndHidesThemAgain) {
    CommandRig rig;
    for (const bool shown : {true, false, true}) {
        rig.form1.mnuNotif.userClick();
        EXPECT_EQ(rig.forms.frmNotify.Visible(), shown);
    }
    EXPECT_EQ(rig.shown, (Texts{"frmNotify", "frmNotify"}));
}

TEST(UpdateButtons, GetUpdatesOpensTheMakersPage) {
    CommandRig rig;
    rig.form1.Label5[6].userClick();
    EXPECT_EQ(rig.orders(), Texts{"Form1 open http://velmora.example/velmora/"});
}

TEST(FunctionsMenu, CleanManagerOpensItsOwnDialog) {
    CommandRig rig;
    rig.form1.mnuCleaner.userClick();
    EXPECT_EQ(rig.orders(), Texts{"Form1 open cleanmgr"});
    EXPECT_EQ(rig.machine.executed[0].parameters, " ");
}

TEST(FunctionsMenu, SorbaneDoesNothing) {
    CommandRig rig;
    rig.form1.mnuSorbane.userClick();
    EXPECT_TRUE(rig.shown.empty());
    EXPECT_TRUE(rig.machine.executed.empty());
}

TEST(FunctionsMenu, ToSystrayAddsTheIconThatIsSwitchedOffAndHidesTheWindow) {
    CommandRig rig;
    rig.form1.chkSystray.setValue(0);
    rig.forms.globals.sTrayTip = "tip";
    rig.form1.mnuToSystray.userClick();
    const auto& sent = rig.surface.notifyArea.sent;
    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent.back().first, NotifyMessage::add);
    EXPECT_EQ(sent.back().second.tip, "03/14 15:09 tip");
    EXPECT_FALSE(rig.form1.Visible());
}

TEST(FunctionsMenu, ToSystrayOnlyHidesTheWindowWhenTheIconIsThere) {
    CommandRig rig;
    ASSERT_TRUE(rig.form1.chkSystray.ticked());
    rig.form1.mnuToSystray.userClick();
    EXPECT_TRUE(rig.surface.notifyArea.sent.empty());
    EXPECT_FALSE(rig.form1.Visible());
    EXPECT_FALSE(rig.form1.mnuHide.Checked());
}

}  // namespace
}  // namespace velmora::tests
