// The options of the alert dialog, its wizard and the hand-over to the sibling cleaner.
#include "alerts/dialog/dialog_rig.h"

namespace velmora::tests {
namespace {

using namespace std::string_literals;

TEST(AlertDialogOptions, HaveTheirWords) {
    DialogRig rig;
    const char* captions[] = {"Sorbane", "Compress F", "Emp. Recyc", "Del. File(s)",
                              "Move File(s)"};
    const char* buttons[] = {"OK", "Clear", "Explorer", "Wizard", "Action"};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(rig.dialog.lblAct[i].Caption(), captions[i]);
        EXPECT_EQ(rig.dialog.lblAl[i].Caption(), buttons[i]);
    }
    EXPECT_EQ(rig.dialog.fraAct.Caption(), "Action Options");
    EXPECT_EQ(rig.dialog.frmCurAlert.Caption(), "Current Alerts");
    EXPECT_EQ(rig.dialog.chkAutoHide.Caption(), "Auto Hide ");
    EXPECT_EQ(rig.dialog.chkLog.Caption(), "Translucent");
    EXPECT_EQ(rig.dialog.Label4.Caption(),
              "It is recommended you free up some space as a preemptive action to prevent the free "
              "space from reaching zero.  To see options, press Action.");
}

TEST(AlertDialogOptions, EachShowsWhatItWouldDoAndBecomesThePendingOne) {
    DialogRig rig;
    const struct {
        const char* caption;
        const char* suggestion;
        const char* word;
    } cases[] = {
        {"Move File(s)", "You can select files to be moved to another path to free up space.",
         "move"},
        {"Del. File(s)", "You can select files to be deleted to free up space.", "delete"},
        {"Emp. Recyc", "You can select to attempt to clear any files in the recycle bin.",
         "recycle"},
        {"Compress F", "You can open the default compression program to try to save space.",
         "compress"},
    };
    for (const auto& each : cases) {
        rig.click(each.caption);
        EXPECT_EQ(rig.dialog.lblSuggest.Caption(), each.suggestion);
        EXPECT_EQ(rig.pending(), each.word);
    }
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(Sorbane, GetsTheFirstRowInAlert) {
    DialogRig rig;
    rig.row("C:\\", "ok");
    rig.row("D:\\", "alert");
    rig.row("E:\\", "alert");
    rig.machine.files[rig.cleanerFile] = "a longer line than the new one\r\nand another\r\n";
    rig.click("Sorbane");
    EXPECT_EQ(rig.machine.files[rig.cleanerFile], "D:\\\r\n");
    ASSERT_EQ(rig.machine.executed.size(), 1u);
    EXPECT_EQ(rig.machine.executed[0].owner, "Form1");
    EXPECT_EQ(rig.machine.executed[0].verb, "open");
    EXPECT_EQ(rig.machine.executed[0].file, "C:\\Program Files\\Velmora\\sorbane.exe");
    EXPECT_EQ(rig.machine.executed[0].parameters, "");
    EXPECT_EQ(rig.machine.executed[0].directory, "");
    EXPECT_EQ(rig.machine.executed[0].showCommand, 1);
    EXPECT_EQ(
        rig.machine.log.calls(),
        (std::vector<std::string>{"writeOver " + rig.cleanerFile,
                                  "ShellExecuteA open C:\\Program Files\\Velmora\\sorbane.exe"}));
}

TEST(Sorbane, WithNoRowInAlertGetsDriveC) {
    DialogRig rig;
    rig.click("Sorbane");
    EXPECT_EQ(rig.machine.files[rig.cleanerFile], "c:\\\r\n");
    rig.row("D:\\", "ok");
    rig.row("E:\\", "");
    rig.row("F:\\", "Alert");
    rig.click("Sorbane");
    EXPECT_EQ(rig.machine.files[rig.cleanerFile], "c:\\\r\n");
}

TEST(Sorbane, SaysWhatItTriedWhereItsFileCantBeWritten) {
    DialogRig rig;
    rig.machine.lockedFiles[rig.cleanerFile] = error::permissionDenied;
    EXPECT_EQ(attemptOf([&] { rig.click("Sorbane"); }),
              "hand the drive to the cleaner " + rig.cleanerFile);
}

TEST(Sorbane, LeavesSuggestionAndPendingOptionUnchanged) {
    DialogRig rig;
    rig.click("Move File(s)");
    const std::string suggestion = rig.dialog.lblSuggest.Caption();
    rig.click("Sorbane");
    EXPECT_EQ(rig.dialog.lblSuggest.Caption(), suggestion);
    EXPECT_EQ(rig.pending(), "move");
}

TEST(Sorbane, GivesNoMessageWhenItIsNotThere) {
    DialogRig rig;
    rig.machine.executes = false;
    EXPECT_NO_THROW(rig.click("Sorbane"));
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(Sorbane, IsNotStartedWhenTheDriveCantBeWrittenForIt) {
    DialogRig locked;
    locked.machine.lockedFiles[locked.cleanerFile] = error::permissionDenied;
    EXPECT_EQ(errorOf([&] { locked.click("Sorbane"); }), error::permissionDenied);
    EXPECT_TRUE(locked.machine.executed.empty());
    DialogRig full;
    full.machine.diskFull = true;
    EXPECT_EQ(errorOf([&] { full.click("Sorbane"); }), error::diskFull);
    EXPECT_TRUE(full.machine.executed.empty());
}

TEST(Sorbane, AFailingCallTouchesNothingElse) {
    for (const int n : {1, 2}) {
        DialogRig rig;
        rig.machine.files[rig.cleanerFile] = "E:\\\r\n";
        rig.row("D:\\", "alert");
        rig.machine.log.failCall(n, error::deviceIo);
        EXPECT_EQ(errorOf([&] { rig.click("Sorbane"); }), n == 1 ? error::deviceIo : 0);
        EXPECT_EQ(rig.machine.files[rig.cleanerFile], n == 1 ? "E:\\\r\n" : "D:\\\r\n");
        EXPECT_TRUE(rig.machine.executed.empty());
        EXPECT_EQ(rig.machine.files.size(), 1u);
        EXPECT_EQ(rig.machine.log.count(), n);
    }
}

TEST(DialogWizard, PutsTheChosenFilesIntoTheBoxAndClicksAdd) {
    for (const char* option : {"Move File(s)", "Del. File(s)"}) {
        DialogRig rig;
        int clicks = 0;
        std::string textAtClick;
        rig.form1.Command2.Click.connect([&] {
            ++clicks;
            textAtClick = rig.form1.cboFile.Text();
            EXPECT_TRUE(rig.host.boxes.empty());
        });
        rig.host.paths.push_back("C:\\data\0größe.txt\0b.log"s);
        rig.click(option);
        rig.click("Wizard");
        ASSERT_EQ(rig.host.fileDialogs.size(), 1u);
        EXPECT_EQ(rig.host.fileDialogs[0].DialogTitle, "Choose File/Folder ");
        EXPECT_EQ(rig.host.fileDialogs[0].Filter, "All Files (*.*)|*.*");
        EXPECT_EQ(rig.host.fileDialogs[0].Flags, 524800);
        EXPECT_EQ(rig.form1.cboFile.Text(), "C:\\data;größe.txt;b.log");
        EXPECT_EQ(clicks, 1);
        EXPECT_EQ(textAtClick, "C:\\data;größe.txt;b.log");
        EXPECT_EQ(rig.form1.cboFile.ListCount(), 0);
        EXPECT_EQ(rig.form1.LVFile.Count(), 0);
        ASSERT_EQ(rig.host.boxes.size(), 1u);
        EXPECT_EQ(rig.host.boxes[0].text,
                  "The files are now listed in the Spec. file(s)\r\n"
                  "If you change your mind, you can go select the file and hit remove");
        EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::ok);
        EXPECT_EQ(rig.machine.log.count(), 0);
    }
}

TEST(DialogWizard, OneChosenFileIsGivenByItsPath) {
    DialogRig rig;
    rig.host.paths.push_back("C:\\data\\a;b.txt");
    rig.click("Move File(s)");
    rig.click("Wizard");
    EXPECT_EQ(rig.form1.cboFile.Text(), "C:\\data\\a;b.txt");
}

TEST(DialogWizard, SaysSoWhenNothingWasChosenAndLeavesTheBox) {
    DialogRig rig;
    int clicks = 0;
    rig.form1.Command2.Click.connect([&] { ++clicks; });
    rig.form1.cboFile.setText("typed");
    rig.click("Del. File(s)");
    rig.click("Wizard");
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "No file(s) were selected.");
    EXPECT_EQ(rig.form1.cboFile.Text(), "typed");
    EXPECT_EQ(clicks, 0);
}

TEST(DialogWizard, ClearsTheFirstActionsOnFilesWhetherFilesWereChosenOrNot) {
    for (const bool chosen : {true, false}) {
        DialogRig rig;
        rig.tickAllActions();
        if (chosen) rig.host.paths.push_back("C:\\a");
        std::vector<int> changed;
        rig.host.onBox = [&](const Box&) { EXPECT_EQ(rig.tickedActions().size(), 12u); };
        rig.form1.lstAct.ItemCheck.connect([&](int index) { changed.push_back(index); });
        rig.click("Move File(s)");
        rig.click("Wizard");
        EXPECT_EQ(rig.tickedActions(), (std::vector<int>{0, 5, 6, 7, 8, 9, 10, 11}));
        EXPECT_EQ(changed, (std::vector<int>{1, 2, 3, 4}));
        EXPECT_EQ(rig.pending(), "move");
    }
}

TEST(DialogWizard, DoesNothingForTheOtherOptionsAndWithoutOne) {
    for (const char* option : {"", "Emp. Recyc", "Compress F"}) {
        DialogRig rig;
        rig.tickAllActions();
        if (*option != '\0') rig.click(option);
        rig.click("Wizard");
        EXPECT_TRUE(rig.host.fileDialogs.empty());
        EXPECT_TRUE(rig.host.boxes.empty());
        EXPECT_EQ(rig.tickedActions().size(), 12u);
        EXPECT_EQ(rig.machine.log.count(), 0);
    }
}

TEST(DialogWizard, UsesTheOptionThatWasPendingWhenItBegan) {
    DialogRig rig;
    rig.tickAllActions();
    rig.click("Move File(s)");
    rig.host.onBox = [&](const Box&) { rig.click("Emp. Recyc"); };
    rig.click("Wizard");
    EXPECT_EQ(rig.tickedActions().size(), 8u);
}

}  // namespace
}  // namespace velmora::tests
