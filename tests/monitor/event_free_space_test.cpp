// Events of the free space: it stays the same, or it changes.
#include "base/errors.h"
#include "monitor/event_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

std::string stagnancy(const std::string& row, const std::string& size) {
    return "Free space stagnancy in: " + row + " at size " + size + " KB\r\n.\r\n";
}
std::string change(const std::string& row, const std::string& size) {
    return "Free space change in: " + row + " at size " + size + " KB\r\n.\r\n";
}

TEST(EventFreeSpace, EqualTextsAreAStagnancy) {
    EventRig rig;
    rig.measured("C:\\", 1234567);
    rig.tickEvent(evt::stagnancy);
    rig.pass();
    EXPECT_EQ(rig.alertTexts(), Texts{stagnancy("C:\\", "1,234,567")});
}

TEST(EventFreeSpace, DifferentTextsAreAChange) {
    EventRig rig;
    rig.measured("C:\\", 1234567);
    rig.setFree("C:", 1234566);
    rig.tickEvent(evt::change);
    rig.pass();
    EXPECT_EQ(rig.alertTexts(), Texts{change("C:\\", "1,234,566")});
}

TEST(EventFreeSpace, AStagnancyIsNoChangeAndAChangeNoStagnancy) {
    for (const int event : {evt::stagnancy, evt::change}) {
        EventRig rig;
        rig.measured("C:\\", 5000);
        if (event == evt::stagnancy) rig.setFree("C:", 5001);
        rig.tickEvent(event);
        rig.pass();
        EXPECT_EQ(rig.alertCount(), 0);
    }
}

TEST(EventFreeSpace, OfBothEntriesExactlyOneFires) {
    for (const double free : {5000, 5001}) {
        EventRig rig;
        rig.measured("C:\\", 5000);
        rig.setFree("C:", free);
        rig.tickEvents({evt::stagnancy, evt::change});
        rig.pass();
        EXPECT_EQ(rig.alertTexts(),
                  Texts{free == 5000 ? stagnancy("C:\\", "5,000") : change("C:\\", "5,001")});
    }
}

TEST(EventFreeSpace, WithAnEmptyPreviousFreeTextNeitherFires) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.at(1).setPreviousFree("");
    rig.tickEvents({evt::stagnancy, evt::change});
    rig.pass();
    EXPECT_EQ(rig.alertCount(), 0);
    rig.setFree("C:", 7);
    rig.pass();
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(EventFreeSpace, ComparesTextsNotNumbers) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.at(1).setPreviousFree("5000");
    rig.tickEvents({evt::stagnancy, evt::change});
    rig.pass();
    EXPECT_EQ(rig.alertTexts(), Texts{change("C:\\", "5,000")});
}

TEST(EventFreeSpace, AChangeOfLessThanHalfAKilobyteIsNone) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.setFree("C:", 5000.49);
    rig.tickEvents({evt::stagnancy, evt::change});
    rig.pass();
    EXPECT_EQ(rig.alertTexts(), Texts{stagnancy("C:\\", "5,000")});
    rig.setFree("C:", 5000.5);
    rig.pass();
    EXPECT_EQ(rig.alertTexts().front(), change("C:\\", "5,001"));
}

TEST(EventFreeSpace, AShareWorksLikeADrive) {
    EventRig rig;
    rig.measured("\\\\server\\data", 5000);
    rig.tickEvent(evt::stagnancy);
    rig.pass();
    EXPECT_EQ(rig.alertTexts(), Texts{stagnancy("\\\\server\\data", "5,000")});
}

TEST(EventFreeSpace, TheDriveIsLookedUpByTheUnchangedRowText) {
    for (const int event : {evt::stagnancy, evt::change}) {
        EventRig rig;
        rig.drive("C:", 5000, 10000);
        WatchRow(rig.row("c:\\")).setFreeSpace("5,000 KB");
        rig.tickEvent(event);
        rig.pass();
        EXPECT_EQ(rig.machine.log.calls(), Texts{"GetDrive c:\\"});
    }
}

TEST(EventFreeSpace, AFolderRowFailsWithErrorFive) {
    for (const int event : {evt::stagnancy, evt::change}) {
        EventRig rig;
        rig.watch("C:\\data", 5000);
        rig.tickEvent(event);
        EXPECT_EQ(errorOf([&] { rig.pass(); }), 5);
    }
}

TEST(EventFreeSpace, BlanksAroundTheRowTextFailToo) {
    EventRig rig;
    rig.drive("C:", 5000, 10000);
    rig.row(" C:\\ ");
    rig.tickEvent(evt::stagnancy);
    EXPECT_EQ(errorOf([&] { rig.pass(); }), 5);
}

TEST(EventFreeSpace, AFolderRowEndsTheCheckQuietlyWithItsAlert) {
    EventRig rig;
    rig.watch("C:\\data", 5000);
    rig.watch("D:\\", 5000);
    rig.tickEvent(evt::change);
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{"Error: Invalid procedure call or argument"});
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    EXPECT_EQ(rig.timesChecked(), 0);
    rig.expectRest();
}

TEST(EventFreeSpace, BothEntriesLookUpTheDriveOnceAndDontMeasureIt) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.tickEvents({evt::stagnancy, evt::change});
    rig.pass();
    EXPECT_EQ(rig.machine.log.countOf("GetDrive"), 1);
    EXPECT_EQ(rig.machine.log.countOf("FreeSpace"), 0);
}

TEST(EventFreeSpace, ADriveThatWentMeanwhileIsComparedByWhatTheCheckHasFound) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.machine.drives["C:"].ready = false;
    rig.tickEvent(evt::stagnancy);
    rig.pass();
    EXPECT_EQ(rig.alertTexts(), Texts{stagnancy("C:\\", "5,000")});
}

TEST(EventFreeSpace, TheShortageTheEventAndTheRowShowWhatTheCheckHasFound) {
    EventRig rig;
    rig.measured("C:\\", 999);
    rig.setFree("C:", 998);
    rig.tickEvent(evt::change);
    // The drive fills up all the while.
    rig.machine.onCall = [&](const std::string& call) {
        if (call == "FreeSpace C:") rig.machine.drives["C:"].freeBytes -= KB;
    };
    rig.check();
    EXPECT_EQ(rig.alertTexts(), (Texts{" - ALERT: Space Shortage < 1000 KB Drive: C:[998 KB]",
                                       change("C:\\", "998")}));
    EXPECT_EQ(rig.at(1).freeSpace(), "998 KB");
}

TEST(EventFreeSpace, ACheckMeasuresTheDriveOfARowOnce) {
    for (const bool percent : {false, true}) {
        for (const bool isShort : {false, true}) {
            EventRig rig;
            rig.measured("C:\\", isShort ? 5 : 5000);
            rig.machine.drives["C:"].totalBytes = 10000 * KB;
            if (percent) rig.usePercent("10");
            rig.tickEvents({evt::stagnancy, evt::change, evt::quantity});
            rig.check();
            EXPECT_EQ(rig.at(1).stateIcon(), isShort ? "alert" : "ok");
            EXPECT_EQ(rig.machine.log.countOf("IsReady C:"), 1);
            EXPECT_EQ(rig.machine.log.countOf("FreeSpace C:"), 1);
            EXPECT_EQ(rig.machine.log.countOf("TotalSize C:"), percent ? 1 : 0);
        }
    }
}

TEST(EventFreeSpace, RegionalDigitGroupsAreUsed) {
    EventRig rig;
    rig.machine.platform().regional = {.digitGroup = ".", .decimalPoint = ","};
    rig.watch("C:\\", 1234567);
    rig.at(1).setFreeSpace("1.234.567 KB");
    rig.events.prcSetPrevInfoLV(rig.list.ListItems(1));
    rig.tickEvents({evt::stagnancy, evt::change});
    rig.pass();
    EXPECT_EQ(rig.alertTexts(), Texts{stagnancy("C:\\", "1.234.567")});
}

// The delay of two checks, in real checks.

TEST(EventLag, ADriveWhoseFreeSpaceAlternatesBetweenTwoValuesShowsStagnancyAtEveryCheck) {
    EventRig rig;
    rig.measured("C:\\", 5000);
    rig.setFree("C:", 6000);
    rig.check();  // nothing ticked yet: 5,000 and 6,000 are the pair now
    rig.tickEvents({evt::stagnancy, evt::change});
    const std::vector<double> sizes{5000, 6000, 5000, 6000, 5000};
    for (std::size_t n = 0; n < sizes.size(); ++n) {
        SCOPED_TRACE(n);
        rig.setFree("C:", sizes[n]);
        rig.form1.LVAlert.Clear();
        WatchRow(rig.list.ListItems(1)).setFirstAlert("");
        rig.check();
        EXPECT_EQ(rig.alertTexts(), Texts{stagnancy("C:\\", sizes[n] == 5000 ? "5,000" : "6,000")});
    }
}

TEST(EventLag, ACheckComparesWithTheValueOfTwoChecksAgo) {
    EventRig rig;
    rig.measured("C:\\", 1000);
    rig.tickEvents({evt::stagnancy, evt::change});
    // The texts before the first check are both 1,000.
    const std::vector<double> sizes{2000, 2000, 2000, 3000, 2000, 2000};
    const Texts expected{change("C:\\", "2,000"),     // 1,000 before the last
                         change("C:\\", "2,000"),     // 1,000
                         stagnancy("C:\\", "2,000"),  // 2,000
                         change("C:\\", "3,000"),     // 2,000
                         stagnancy("C:\\", "2,000"),  // 2,000
                         change("C:\\", "2,000")};    // 3,000
    for (std::size_t n = 0; n < sizes.size(); ++n) {
        SCOPED_TRACE(n);
        rig.setFree("C:", sizes[n]);
        rig.form1.LVAlert.Clear();
        WatchRow(rig.list.ListItems(1)).setFirstAlert("");
        rig.check();
        EXPECT_EQ(rig.alertTexts(), Texts{expected[n]});
    }
    EXPECT_EQ(rig.timesChecked(), 6);
}

TEST(EventLag, TheStartOfTheProgramPrimesThePair) {
    Rig fresh;
    fresh.drive("C:", 1000, 10000);
    fresh.load();
    ASSERT_EQ(fresh.list.Count(), 1);
    const WatchRow row(fresh.list.ListItems(1));
    EXPECT_EQ(row.previousFree(), "1,000");
    EXPECT_EQ(row.freeSpace(), "1,000 KB");
    // The program's own folder lies there.
    EXPECT_EQ(row.folderCounts(), "file:0|fold:1|");
}

}  // namespace
}  // namespace velmora::tests
