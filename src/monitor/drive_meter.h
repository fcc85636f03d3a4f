// The gauges of the individual drive view: how much of the drive its trigger and its free space
// take, and the drive's figures in a list.
#pragma once

#include <string>

#include "forms/forms.h"
#include "platform/platform.h"
#include "rows/watch_row.h"

namespace velmora {

class DriveMeter {
  public:
    DriveMeter(Forms& forms, Platform& platform) : forms_(forms), platform_(platform) {}
    DriveMeter(const DriveMeter&) = delete;
    DriveMeter& operator=(const DriveMeter&) = delete;

    /// Shows the view, standing on that drive or path.
    void prcShowfrmIndDri(const std::string& path);
    /// Shows the figures of that row of the watch list. Draws nothing for a row that isn't
    /// available or has no total size. Never fails: what lies beyond a gauge's range stands at its
    /// end, and a folder that can't be read is "N/A".
    void prcSrvMeter(ListItem& row);
    /// Shows the row of the drive that the view stands on, while the view is visible. `strDri`
    /// isn't used.
    void prcSrvMeterPreSet(const std::string& strDri);

  private:
    double triggerKB(const ConstWatchRow& row, double totalKB) const;
    void listFigures(const ConstWatchRow& row);

    Forms& forms_;
    Platform& platform_;
};

}  // namespace velmora
