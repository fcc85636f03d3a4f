// The gauges of the individual drive view: how much of the drive its trigger and its free space
// take, and the drive's figures in a list.
#pragma once

#include <optional>
#include <string>

#include "base/regional.h"
#include "forms/form1.h"
#include "forms/frm_ind_dri.h"
#include "platform/file_system_object.h"
#include "rows/watch_row.h"

namespace velmora {

class DriveMeter {
  public:
    DriveMeter(Form1& form1, FrmIndDri& frmIndDri, FileSystemObject& fso, const Regional& regional)
        : form1_(form1), frmIndDri_(frmIndDri), fso_(fso), regional_(regional) {}
    DriveMeter(const DriveMeter&) = delete;
    DriveMeter& operator=(const DriveMeter&) = delete;

    /// Shows the view of that drive or path.
    void prcShowfrmIndDri(const std::string& path);
    /// The same without bringing the view to the front.
    void showPath(const std::string& path);
    /// Shows the figures of that row of the watch list. Draws nothing for a row whose free space
    /// says that it isn't ready. Never fails: a figure that the row doesn't have clears its gauge,
    /// a value beyond a gauge's range is shown at its end, and a folder that can't be read is
    /// "N/A".
    void prcSrvMeter(ListItem& row);
    /// The same, but `VScroll1` stays where the user has moved it.
    void refresh(ListItem& row);
    /// Shows no figures.
    void clear();
    /// Shows the row of the view's present drive, while the view is visible. `strDri` isn't used.
    void prcSrvMeterPreSet(const std::string& strDri);

  private:
    std::optional<double> triggerKB(const ConstWatchRow& row, double totalKB) const;
    void showRow(ListItem& item, bool movesBar);
    void moveBar(std::optional<double> triggerKB, double totalKB);
    void showShares(std::optional<double> triggerKB, std::optional<double> freeKB, double totalKB);
    void offerPaths();
    void listFigures(const ConstWatchRow& row);

    Form1& form1_;
    FrmIndDri& frmIndDri_;
    FileSystemObject& fso_;
    const Regional& regional_;
    int barPlace_ = 0;  // where VScroll1 was put last
};

}  // namespace velmora
