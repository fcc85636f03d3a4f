// The event pass of a row: the order of its tests, what the status panels show, and its summary.
#include "base/errors.h"
#include "monitor/event_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

const std::string stagnancyOfC = "Free space stagnancy in: C:\\ at size 5,000 KB\r\n.\r\n";

TEST(EventPanels, WithNothingTickedEveryEntryIsNamedByItsIndex) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.pass();
    EXPECT_EQ(rig.panel1, (Texts{"Events Listing Check: 0", "Events Listing Check: 1",
                                 "Events Listing Check: 2", "Events Listing Check: 3",
                                 "Events Listing Check: 4", "Events Listing Check Done. 1"}));
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_EQ(rig.host.yields, 0);
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(EventPanels, TickedEntriesAreNamedByTheirCaptionsToo) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvents({evt::stagnancy, evt::change, evt::quantity, evt::modification});
    rig.pass();
    EXPECT_EQ(
        rig.panel1,
        (Texts{"Events Listing Check: 0",
               "Checking Events for: No Change in Free Space Size (Stagnancy)",
               "Events Listing Check: 1", "Checking Events for: Change in Free Space Size ",
               "Events Listing Check: 2", "Checking Events for: Change in Amount of File/Folder(s)",
               "Events Listing Check: 3", "Checking Events for: Modification to file(s)",
               "Events Listing Check: 4", "Events Listing Check Done. 1"}));
}

TEST(EventPanels, ACheckShowsThePassBetweenItsOwnTexts) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvent(evt::stagnancy);
    rig.panel1.clear();
    rig.check();
    EXPECT_EQ(
        rig.panel1,
        (Texts{"Checking...", "Checking: C:\\", "Events Listing", "Events Listing Check: 0",
               "Checking Events for: No Change in Free Space Size (Stagnancy)",
               "Events Listing Check: 1", "Events Listing Check: 2", "Events Listing Check: 3",
               "Events Listing Check: 4", "Events Listing Check Done. 1",
               "Events Listing Check Done. 2", "Refresh Info.:", "Ready. Check in 0 (sec.)"}));
}

TEST(EventStop, AClearedCheckLeavesThePassBeforeItsFirstEntry) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvents(
        {evt::stagnancy, evt::change, evt::quantity, evt::modification, evt::unavailable});
    rig.forms.globals.bChecking = false;
    rig.panel1.clear();
    rig.events.checkEvents(1, 5000 * KB);
    EXPECT_EQ(rig.panel(2), "Ready (e2): ");
    EXPECT_EQ(rig.panel1, Texts{"Events Listing Check Done. 1"});
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(EventStop, AClearedCheckLeavesThePassAtTheNextEntryWithWhatWasFound) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvents({evt::stagnancy, evt::modification});
    rig.machine.onCall = [&](const std::string& call) {
        if (call == "GetDrive C:\\") rig.forms.globals.bChecking = false;
    };
    rig.pass();
    EXPECT_EQ(rig.panel1, (Texts{"Events Listing Check: 0",
                                 "Checking Events for: No Change in Free Space Size (Stagnancy)",
                                 "Events Listing Check Done. 1"}));
    EXPECT_EQ(rig.panel2, Texts{"Ready (e2): "});
    EXPECT_EQ(rig.alertTexts(), Texts{stagnancyOfC});
    EXPECT_EQ(rig.machine.log.countOf("FindFirstFileA"), 0);
}

TEST(EventStop, AClearedCheckStillTakesTheRowsFiguresAndEndsAtTheNextRow) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.measured("D:\\", 5000);
    rig.tickEvent(evt::stagnancy);
    rig.setFree("C:", 6000);
    rig.machine.onCall = [&](const std::string& call) {
        if (call == "GetDrive C:\\") rig.forms.globals.bChecking = false;
    };
    rig.check();
    EXPECT_EQ(rig.at(1).freeSpace(), "6,000 KB");
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    rig.expectRest();
}

TEST(EventOrder, TestsRunInTheOrderOfTheList) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvents({evt::modification, evt::quantity, evt::change, evt::stagnancy});
    rig.at(1).setFolderCounts("file:9|fold:9|");
    rig.machine.listings["C:"] = {{.ftLastWriteTime = rig.present() + 1, .cFileName = "new"}};
    rig.pass();
    EXPECT_EQ(rig.machine.log.calls(),
              (Texts{"GetDrive C:\\", "GetFolder C:\\", "FilesCount C:\\", "SubFoldersCount C:\\",
                     "FindFirstFileA C:\\*.*", "FindNextFileA", "FindClose",
                     "FileExists " + rig.form1.txtAudio[0].Text()}));
    // The alert for files is raised at once, the summary of the others at the end.
    EXPECT_EQ(rig.alertTexts(),
              (Texts{stagnancyOfC + "File Quantity changed in C:\\ from 9 to 0\r\n.\r\n" +
                         "Folder Quantity changed in C:\\ from 9 to 0\r\n.\r\n",
                     "Files modified: Change Type: Last Write\r\n  C:\\new\r\n"}));
}

TEST(EventUnavailable, FailsWithErrorFourHundredTwentyFourAtTheFirstReadyRow) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvent(evt::unavailable);
    EXPECT_EQ(errorOf([&] { rig.pass(); }), 424);
    EXPECT_EQ(rig.panel1.back(), "Checking Events for: Listed Drive/Path become N/A");
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(EventUnavailable, TheFaultPathEndsTheCheckAtThatRow) {
    EventRig rig;
    rig.measured("C:\\", 5);
    rig.measured("D:\\", 5);
    rig.tickEvents({evt::stagnancy, evt::unavailable});
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.alert(1), std::string("High | ") + stampDateTime + " | Error: Object required");
    // What the row's other tests had found is dropped, and nothing after the events is done.
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.form1.txtAlert.Text(), "");
    EXPECT_EQ(rig.count("prcSetPrevInfoLV C:\\"), 0);
    EXPECT_EQ(rig.at(1).stateIcon(), "");
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    EXPECT_EQ(rig.timesChecked(), 0);
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.panel(1), "Ready. Check in: 5 (sec.)");
    rig.expectRest();
}

TEST(EventUnavailable, AnAlertForFilesRaisedBeforeTheFailureIsKept) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvents({evt::modification, evt::unavailable});
    rig.machine.listings["C:"] = {{.ftLastWriteTime = rig.present() + 1, .cFileName = "new"}};
    EXPECT_EQ(errorOf([&] { rig.pass(); }), 424);
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.forms.globals.lastFileTime, rig.present());
}

TEST(EventUnavailable, UnwatchedRowsAndThoseNotReadyDontFail) {
    EventRig rig;
    rig.row("C:\\", false);
    rig.watch("D:\\", 5000);
    rig.machine.drives["D:"].ready = false;
    rig.tickEvent(evt::unavailable);
    rig.check();
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(EventSummary, IsOneHighAlertOfTheRow) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvent(evt::stagnancy);
    rig.pass();
    EXPECT_EQ(rig.alert(1), std::string("High | ") + stampDateTime + " | " + stagnancyOfC);
    EXPECT_EQ(ConstWatchRow(rig.list.ListItems(1)).firstAlert(), stagnancyOfC);
    EXPECT_EQ(rig.alertCount(), 1);
}

TEST(EventSummary, IsPrependedToTheDialogsTextWithAStampAndToTheJournalWithout) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.form1.txtAlert.setText("journal");
    rig.forms.dlgAlert.Label1.setText("dialog");
    rig.tickEvent(evt::stagnancy);
    rig.pass();
    EXPECT_EQ(rig.forms.dlgAlert.Label1.Text(), "03/14/26 15:09:26 " + stagnancyOfC + "dialog");
    EXPECT_EQ(rig.form1.txtAlert.Text(), stagnancyOfC + "journal");
}

TEST(EventSummary, ARepeatedOneReachesTheJournalButNotTheAlertList) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvent(evt::stagnancy);
    rig.pass();
    rig.pass();
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.form1.txtAlert.Text(), stagnancyOfC + stagnancyOfC);
}

TEST(EventSummary, HasOnlyTheEventsOfItsOwnRow) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.measured("D:\\", 7000);
    rig.tickEvent(evt::stagnancy);
    rig.check();
    EXPECT_EQ(rig.alertTexts(),
              (Texts{"Free space stagnancy in: D:\\ at size 7,000 KB\r\n.\r\n", stagnancyOfC}));
}

TEST(EventSummary, WithoutEventsNothingIsReportedPlayedOrShown) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.tickEvent(evt::change);
    rig.pass();
    EXPECT_EQ(rig.alertCount(), 0);
    EXPECT_EQ(rig.form1.txtAlert.Text(), "");
    EXPECT_EQ(rig.forms.dlgAlert.Label1.Text(), "");
    EXPECT_EQ(rig.machine.log.countOf("FileExists"), 0);
    EXPECT_EQ(rig.count("alert dialog"), 0);
}

TEST(EventSound, TheFirstSoundFileIsPlayedWhenItIsThere) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.form1.txtAudio[0].setText("C:\\ring.wav");
    rig.form1.txtAudio[1].setText("C:\\other.wav");
    rig.machine.files = {{"C:\\ring.wav", ""}, {"C:\\other.wav", ""}};
    rig.tickEvent(evt::stagnancy);
    rig.pass();
    ASSERT_EQ(rig.machine.played.size(), 1u);
    EXPECT_EQ(rig.machine.played[0].first, "C:\\ring.wav");
    EXPECT_EQ(rig.machine.played[0].second, 2);
}

TEST(EventSound, AMissingSoundFileIsNotReplaced) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.form1.txtAudio[0].setText("C:\\ring.wav");
    rig.form1.txtAudio[1].setText("C:\\other.wav");
    rig.machine.files = {{"C:\\other.wav", ""},
                         {rig.machine.platform().app.Path + "\\sound\\alert.WAV", ""}};
    rig.tickEvent(evt::stagnancy);
    rig.pass();
    EXPECT_TRUE(rig.machine.played.empty());
}

TEST(EventSound, ASoundThatCantBePlayedChangesNothing) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.form1.txtAudio[0].setText("C:\\ring.wav");
    rig.machine.files["C:\\ring.wav"] = "";
    rig.machine.playResult = 0;
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.tickEvent(evt::stagnancy);
    rig.pass();
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.count("alert dialog"), 1);
}

TEST(EventSound, IsPlayedAfterTheJournalIsWrittenAndBeforeTheDialogIsShown) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.form1.txtAudio[0].setText("C:\\ring.wav");
    rig.machine.files["C:\\ring.wav"] = "";
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.tickEvent(evt::stagnancy);
    rig.machine.onCall = [&](const std::string& call) {
        if (call.compare(0, 13, "sndPlaySoundA") != 0) return;
        EXPECT_EQ(rig.form1.txtAlert.Text(), stagnancyOfC);
        EXPECT_EQ(rig.count("alert dialog"), 0);
    };
    rig.pass();
    EXPECT_EQ(rig.machine.played.size(), 1u);
    EXPECT_EQ(rig.count("alert dialog"), 1);
}

TEST(EventDialog, IsShownForAnEventWhenItIsHiddenAndAlertsAreTicked) {
    for (const bool visible : {false, true}) {
        for (const bool ticked : {false, true}) {
            EventRig rig;
            rig.measured("C:\\", 5000);
            rig.forms.dlgAlert.setVisible(visible);
            rig.form1.lstAct.setSelected(act::alert, ticked);
            rig.tickEvent(evt::stagnancy);
            rig.pass();
            EXPECT_EQ(rig.count("alert dialog"), !visible && ticked ? 1 : 0);
        }
    }
}

TEST(EventFault, AFailedSummaryLeavesDialogAndJournalUnchanged) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvent(evt::stagnancy);
    rig.form1.chkAutoSave.setValue(1);
    rig.machine.files[rig.form1.lblLog.Caption()] = "";
    rig.machine.lockedFiles[rig.form1.lblLog.Caption()] = 70;
    EXPECT_EQ(errorOf([&] { rig.pass(); }), 70);
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.form1.txtAlert.Text(), "");
    EXPECT_EQ(rig.forms.dlgAlert.Label1.Text(), "");
}

TEST(EventFault, ARowRemovedInTheMiddleOfThePassEndsTheCheckQuietly) {
    for (const char* at : {"GetDrive C:\\", "GetFolder C:\\", "FindFirstFileA C:\\*.*"}) {
        SCOPED_TRACE(at);
        EventRig rig;
        rig.measured("C:\\", 5000);
        rig.tickEvents({evt::stagnancy, evt::quantity, evt::modification});
        rig.machine.onCall = [&](const std::string& call) {
            if (call == at) rig.list.Clear();
        };
        rig.check();
        EXPECT_EQ(rig.alertTexts().front(), "Error: Index out of bounds");
        EXPECT_TRUE(rig.host.boxes.empty());
        EXPECT_EQ(rig.machine.openListings, 0);
        rig.expectRest();
    }
}

TEST(EventCost, APassCallsTheMachineNoMoreThanItsTestsNeed) {
    constexpr int rows = 1000;
    EventRig rig;
    for (int i = 0; i < rows; ++i) rig.measured("C:\\", 5000);
    rig.tickEvents({evt::stagnancy, evt::change, evt::quantity, evt::modification});
    rig.form1.chkAutoSave.setValue(0);
    rig.check();
    EXPECT_EQ(rig.timesChecked(), 1);
    // For the trigger, for the free space, for the row's figures; the first one measures.
    EXPECT_EQ(rig.machine.log.countOf("GetDrive "), 3 * rows);
    EXPECT_EQ(rig.machine.log.countOf("FreeSpace "), rows);
    EXPECT_EQ(rig.machine.log.countOf("GetFolder "), 2 * rows);
    EXPECT_EQ(rig.machine.log.countOf("FilesCount "), 2 * rows);
    EXPECT_EQ(rig.machine.log.countOf("SubFoldersCount "), 2 * rows);
    EXPECT_EQ(rig.machine.log.countOf("FindFirstFileA "), rows);
}

}  // namespace
}  // namespace velmora::tests
