// The check with its real event detection, over a loaded program with an empty watch list.
#pragma once

#include <string>
#include <vector>

#include "base/text.h"
#include "monitor/check_rig.h"

namespace velmora::tests {

struct EventRig : CheckRig {
    /// There are no files and folders except those that a test adds.
    EventRig() {
        machine.files.clear();
        machine.folders.clear();
    }

    void tickEvent(int event) { form1.lstEvt.setSelected(event, true); }
    void tickEvents(const std::vector<int>& ticked) {
        for (const int event : ticked) tickEvent(event);
    }
    /// A ticked row of a drive that has been measured as at the start of the program: it shows its
    /// free space in KB, and both figures of a comparison are set.
    ListItem& measured(const std::string& path, double freeKB) {
        ListItem& item = watch(path, freeKB);
        WatchRow(item).setFreeBytes(freeKB * KB, Grouping::regional, {});
        events.prcSetPrevInfoLV(item);
        clearRecords();
        return item;
    }
    void setFree(const std::string& drivePath, double freeKB) {
        machine.drives[drivePath].freeBytes = freeKB * KB;
    }
    /// What the check would have measured.
    double freeBytesOf(const std::string& path) {
        for (const auto& [name, drive] : machine.drives) {
            if (lowerCase(trim(path)).starts_with(lowerCase(name))) return drive.freeBytes;
        }
        return 0;
    }
    /// Runs the event pass of a row as the check would, without the check.
    void pass(int row = 1) {
        forms.globals.bChecking = true;
        panel1.clear();
        panel2.clear();
        events.checkEvents(row, freeBytesOf(WatchRow(list.ListItems(row)).path()));
        forms.globals.bChecking = false;
    }
    /// The fake clock as a file time.
    std::uint64_t present() { return machine.platform().clock.GetSystemTimeAsFileTime(); }
};

}  // namespace velmora::tests
