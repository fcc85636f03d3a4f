// A loaded program with an empty watch list, for tests of the check: rows with drives, the
// history of the status panels, and what must hold at the end of every tick.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "monitor/rig.h"

namespace velmora::tests {

/// The fake clock's start in the stamps that alerts carry: 2026-03-14 15:09:26.
inline constexpr const char* stampMinutes = "20260314 15:09";
inline constexpr const char* stampSeconds = "20260314 15:09:26";
inline constexpr const char* stampDateTime = "03/14/26 15:09:26";

struct CheckRig : Rig {
    std::vector<std::string> panel1;  ///< the texts of panel 1 since the start, in order
    std::vector<std::string> panel2;

    CheckRig() {
        load();
        const std::string folder = platform.app.Path + "\\";
        for (const char* clip : {"spin.avi", "alert.avi"}) machine.files[folder + clip] = "";
        // Whether a clip is there is looked up once.
        for (const float clip : {0.0F, 1.0F}) statistics.prcSrvAnimation(clip, 0);
        clearRecords();
        form1.txtSpace.setText("1000");
        form1.StatusBar1.PanelChanged.connect([this](int index) {
            auto& history = index == 1 ? panel1 : panel2;
            if (index > 2) return;
            if (history.empty() || history.back() != panel(index)) history.push_back(panel(index));
        });
    }

    /// A ticked row and its drive, free and total space in KB.
    ListItem& watch(const std::string& path, double freeKB, double totalKB = 1'000'000) {
        drive(driveNameOf(path), freeKB, totalKB);
        return row(path);
    }
    void tick() { form1.Timer1.Tick(); }
    WatchRow at(int index) { return WatchRow(list.ListItems(index)); }
    void useIndividualTriggers(const std::vector<std::string>& triggers) {
        form1.chkDrive.setValue(1);
        for (int i = 1; i <= list.Count(); ++i) {
            at(i).setTrigger(triggers[static_cast<std::size_t>(i - 1)]);
        }
        clearRecords();
    }
    void usePercent(const std::string& percent) {
        form1.txtSpace.setText(percent);
        form1.OpDriv[1].choose();
        clearRecords();
    }
    /// Ticks `action` and makes it raise that error on a short row.
    void failWith(int number) {
        form1.lstAct.setSelected(act::alert, true);
        onAction = [number](int, Shortage&) { throw RuntimeError(number); };
    }
    int alertCount() { return form1.LVAlert.Count(); }
    /// "rating | time | text" of an alert, 1 for the newest.
    std::string alert(int index) {
        const ConstAlertRow row(form1.LVAlert.ListItems(index));
        return row.rating() + " | " + row.time() + " | " + row.text();
    }
    int timesChecked() { return forms.globals.lngTimesChecked; }

    /// The state after every tick, also after errors.
    void expectRest() {
        EXPECT_FALSE(forms.globals.bChecking);
        EXPECT_TRUE(form1.Timer1.Enabled());
        EXPECT_TRUE(list.Enabled());
        EXPECT_FALSE(forms.icon0.Visible());
    }
};

}  // namespace velmora::tests
