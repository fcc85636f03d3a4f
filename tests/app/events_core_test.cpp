// Events, actions and the log in the wired program.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "rows/alert_row.h"
#include "rows/watch_row.h"
#include "wired_rig.h"

namespace velmora::tests {
namespace {

struct WiredEvents : testing::Test, WiredRig {
    WiredEvents() {
        core.load();
        forms.form1.ListView1.userTick(1, true);
        forms.form1.DTPInterval.setMinute(0);
    }
    void check() { forms.form1.Timer1.Tick(); }
    std::vector<std::string> alerts() {
        std::vector<std::string> texts;
        ListView& list = forms.form1.LVAlert;
        for (int i = list.Count(); i >= 1; --i)
            texts.push_back(ConstAlertRow(list.ListItems(i)).text());
        return texts;
    }
};

TEST_F(WiredEvents, FreeSpaceThatDoesNotChangeIsReported) {
    forms.form1.lstEvt.userTick(evt::stagnancy, true);
    forms.form1.lstAct.userTick(act::alert, true);
    check();
    check();
    // 50,000,000,000 bytes.
    const std::string text = "Free space stagnancy in: C:\\ at size 48,828,125 KB\r\n.\r\n";
    ASSERT_FALSE(alerts().empty());
    EXPECT_EQ(alerts().front(), text);
    EXPECT_TRUE(forms.form1.txtAlert.contains(text));
    EXPECT_TRUE(forms.dlgAlert.Label1.contains(text));
    EXPECT_TRUE(forms.dlgAlert.Visible());
}

TEST_F(WiredEvents, ADriveThatWentAwayIsReportedOnce) {
    forms.form1.lstEvt.setSelected(evt::unavailable, true);
    // Measured once before, by the start.
    WatchRow(forms.form1.ListView1.ListItems(1)).setPreviousFree("48,828,125");
    machine.drives["C:"].ready = false;
    check();
    check();
    EXPECT_EQ(alerts(), std::vector<std::string>{"Drive Became Unavailable: C:\\"});
}

TEST_F(WiredEvents, ANewFileIsFoundByTheScan) {
    forms.form1.lstEvt.userTick(evt::modification, true);
    check();
    ASSERT_TRUE(alerts().empty());
    machine.advance(1000);
    machine.files["C:\\new.txt"] = "x";
    const std::uint64_t now = machine.platform().clock.GetSystemTimeAsFileTime();
    machine.times["C:\\new.txt"] = {now, now, now};
    check();
    EXPECT_EQ(alerts(), std::vector<std::string>{
                            "Files modified: Change Type: Last Write\r\n  C:\\new.txt\r\n"});
}

TEST_F(WiredEvents, TheShortageReachesTheLogFile) {
    forms.form1.chkAutoSave.setValue(1);
    forms.form1.txtSpace.setText("99999999");
    check();
    const std::string& log = machine.files["C:\\Program Files\\Velmora\\log.dat"];
    EXPECT_EQ(log,
              "03/14/26 15:09:26 - ALERT: Space Shortage < 99999999 KB Drive: C:[48,828,125 KB]\r\n"
              " . \r\n\r\n");
}

// A move with nothing to move passes its text to the dialog, and doesn't show it itself.
TEST_F(WiredEvents, WithItsTextEmptiedTheDialogOpensAgainForTheSameActionText) {
    DlgAlert& dialog = forms.dlgAlert;
    forms.form1.txtSpace.setText("99999999");
    forms.form1.lstAct.userTick(act::move, true);
    dialog.Label1.setText("- No Moved File: no file selected.  Drive: C:");
    check();
    EXPECT_FALSE(dialog.Visible());
    dialog.lblAl[alert_button::clear].userClick();
    EXPECT_TRUE(dialog.Label1.empty());
    check();
    EXPECT_TRUE(dialog.Visible());
}

}  // namespace
}  // namespace velmora::tests
