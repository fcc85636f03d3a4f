// The two charts of the drive information dialog over the rows of the watch list.
#pragma once

#include <cstdint>
#include <string>

#include "base/regional.h"
#include "controls/list_view.h"
#include "forms/dlg_drive_info.h"

namespace velmora {

class DriveCharts {
  public:
    /// All must outlive it.
    DriveCharts(DlgDriveInfo& form, ListView& watchList, const Regional& regional)
        : form_(form), watchList_(watchList), regional_(regional) {}

    /// Free and total space of each row as bars, in KB under a title that says MB. A row that isn't
    /// available has both at 0. Error 13 when a size is no number.
    void prcDriveChart();
    /// The rows' shares of all free space as a pie, whose caption says how much that is. The
    /// sum stops at the greatest 32-bit number. Error 13 as above.
    void prcDistributionChart();

  private:
    void show(Chart& chart);

    DlgDriveInfo& form_;
    ListView& watchList_;
    const Regional& regional_;
};

/// The free space of all rows that are available in KB, each rounded to a whole number. It stops at
/// the greatest 32-bit number. Error 13 when a size is no number.
std::int32_t totalFreeKB(const ListView& watchList, const Regional& regional);
/// The caption of the pie: up to 1000 in KB, else in MB of 1000 KB each.
std::string distributionCaption(std::int32_t totalKB);

}  // namespace velmora
