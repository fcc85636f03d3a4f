// The watch list: how rows are made from the machine's drives, measured again, and removed.
#pragma once

#include <string>

#include "alerts/journal/alert_list.h"
#include "forms/forms.h"
#include "platform/platform.h"
#include "rows/watch_row.h"

namespace velmora {

class WatchList {
  public:
    WatchList(Form1& form1, Globals& globals, Platform& platform, AlertList& alerts)
        : form1_(form1), globals_(globals), platform_(platform), alerts_(alerts) {}

    /// Appends one row for every logical drive. Rows of the same path are not looked for.
    void RefreshDrive();
    /// Measures the rows that are there. A folder row becomes the root of its drive; a path that is
    /// gone raises an alert.
    void RefreshDriveExisting();
    /// Makes exactly the ticked rows of a list bold; does nothing during a check.
    void prcLVBold(ListView& thisLV);
    static void removeSelected(ListView& list);
    /// Removes every row whose text and tag are both empty.
    static void prcClnLV(ListView& thisLV);

  private:
    // The sums and texts of one refresh. The total text is carried from row to row: a drive that
    // isn't ready shows the one before it.
    struct Measure {
        double freeSum = 0;
        double totalSum = 0;
        std::string path;
        SpaceTexts shown;
    };

    std::string logicalDrives();
    void measure(const std::string& root, Measure& measure);
    void refreshRow(ListItem& row, Measure& measure);
    void markInaccessible(ListItem& row, const std::string& path);
    void finishRefresh(const Measure& measure);

    Form1& form1_;
    Globals& globals_;
    Platform& platform_;
    AlertList& alerts_;
};

}  // namespace velmora
