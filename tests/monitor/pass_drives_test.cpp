// When a reading of a drive serves a later row of the same pass, and when it doesn't.
#include "monitor/pass_drives.h"

#include <algorithm>

#include "base/errors.h"
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

constexpr const char* look = "GetDrive D:";

// Three rows on one drive, and yields at which nothing runs unless a test says otherwise.
struct ServedRows : CheckRig {
    ServedRows() {
        watch("D:\\", 5000);
        row("D:\\films");
        row(" d:\\music ");
        host.saysThatNothingRan = true;
    }
    /// How often a check looks the drive up.
    int looks() {
        clearRecords();
        check();
        const auto& made = machine.log.calls();
        return static_cast<int>(std::count_if(made.begin(), made.end(), [](const auto& call) {
            return call == look || call == "GetDrive d:";
        }));
    }
};

TEST(PassDrives, AReadingServesTheRowsOfItsDriveWhileNothingRuns) {
    ServedRows rig;
    EXPECT_EQ(rig.looks(), 1);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(rig.at(i).stateIcon(), "ok") << i;
}

TEST(PassDrives, EachPassMeasuresAnew) {
    ServedRows rig;
    EXPECT_EQ(rig.looks(), 1);
    rig.drive("D:", 5, 1'000'000);
    EXPECT_EQ(rig.looks(), 3);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(rig.at(i).stateIcon(), "alert") << i;
}

TEST(PassDrives, EachDriveHasAReadingOfItsOwn) {
    ServedRows rig;
    rig.watch("E:\\", 5);
    rig.row("\\\\host\\share\\a");
    rig.row("\\\\host\\share\\b");
    rig.drive("\\\\host\\share", 5000, 1'000'000);
    rig.check();
    EXPECT_EQ(rig.at(3).stateIcon(), "ok");
    EXPECT_EQ(rig.at(4).stateIcon(), "alert");
    EXPECT_EQ(rig.at(5).stateIcon(), "ok");
    EXPECT_EQ(rig.machine.log.countOf("GetDrive \\\\host\\share"), 1);
}

TEST(PassDrives, WhatRanAtAYieldEndsIt) {
    ServedRows rig;
    rig.host.saysThatNothingRan = false;
    EXPECT_EQ(rig.looks(), 3);
    // At the second row's yield alone, with a change of the drive by what ran.
    rig.host.onYield = [&](int yield) {
        rig.host.saysThatNothingRan = yield != 2;
        if (yield == 2) rig.drive("D:", 5, 1'000'000);
    };
    rig.clearRecords();
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.at(2).stateIcon(), "alert");
}

TEST(PassDrives, AShortageEndsIt) {
    ServedRows rig;
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.drive("D:", 5, 1'000'000);
    // The action makes room: the rows after it are fine.
    rig.onAction = [&](int, Shortage&) { rig.drive("D:", 5000, 1'000'000); };
    EXPECT_EQ(rig.looks(), 2);
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
    EXPECT_EQ(rig.at(3).stateIcon(), "ok");
}

TEST(PassDrives, ATickedEventEndsIt) {
    ServedRows rig;
    rig.form1.lstEvt.setSelected(evt::quantity, true);
    EXPECT_EQ(rig.looks(), 3);
}

TEST(PassDrives, ADriveThatIsNotReadyIsAskedAgain) {
    ServedRows rig;
    rig.machine.drives["D:"].ready = false;
    EXPECT_EQ(rig.looks(), 3);
}

TEST(PassDrives, AReadingServesFiftyMilliseconds) {
    ServedRows rig;
    rig.host.onYield = [&](int) { rig.machine.advance(25); };
    EXPECT_EQ(rig.looks(), 2);
}

TEST(PassDrives, APathWithoutADriveIsAnInvalidCall) {
    ServedRows rig;
    PassDrives drives(rig.platform.fso, rig.platform.clock);
    EXPECT_EQ(errorOf([&] { drives.of("data"); }), error::invalidCall);
    EXPECT_EQ(errorOf([&] { drives.of(""); }), error::invalidCall);
}

}  // namespace
}  // namespace velmora::tests
