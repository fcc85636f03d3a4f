// All forms of the program and the globals that they share.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "forms/form1.h"
#include "forms/frm_notify.h"

namespace velmora {

/// The alert dialog.
class DlgAlert : public Form {
  public:
    DlgAlert() : Form("dlgAlert", "Alert Window - Velmora ") {}

    TextBox Label1{*this, "Label1"};  ///< the dialog's journal; a text box in spite of its name
};

/// The form behind the notification area's icon; never visible.
class SysWorkSystray : public Form {
  public:
    SysWorkSystray() : Form("sysWorkSystray") {}

    Timer tmrSystray{*this, "tmrSystray", 1000, false};  ///< runs while an alert is pending
};

/// The progress dialog of a check.
class Icon0 : public Form {
  public:
    Icon0() : Form("Icon0", "Velmora") { fraProgress.setVisible(false); }

    Frame fraProgress{*this, "fraProgress"};
    Label lblProgress{*this, "lblProgress"};
    CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};  ///< stops the check between two rows
};

/// The view of one drive.
class FrmIndDri : public Form {
  public:
    FrmIndDri() : Form("frmIndDri", "Drive Settings - Karvelle Velmora") {
        ListView1.addColumn({"Properties"});
        ListView1.addColumn({"Value"});
    }

    Label lblP{*this, "lblP"};  ///< caption: the drive or path shown
    ListView ListView1{*this, "ListView1"};
    Slider VScroll1{*this, "VScroll1", 0, 100, 1, 10};  ///< the minimum free space, 100 for none
    Slider VMeter1{*this, "VMeter1", 0, 50, 1, 5};      ///< the trigger, 50 for none
    Slider VMeter2{*this, "VMeter2", 0, 50, 1, 5};      ///< the free space, 50 for none
    Timer Timer1{*this, "Timer1", 10000, false};
};

/// What the drive information dialog reads of the last refresh. The sums stop at the greatest
/// 32-bit number: a machine with more than 2 TB must still start.
struct DriveTotals {
    std::int32_t lngFreeKB = 0;
    std::int32_t lngSizeKB = 0;
    DateTime dtLast;
    std::int32_t lngDrives = 0;
    std::int32_t lngRefreshes = 0;
    std::int32_t lngRateKB = 0;
};

/// Globals.
struct Globals {
    bool bChecking = false;  ///< a check is running; clearing it from outside stops the check
    std::int32_t lngTimesChecked = 0;
    std::int32_t lngAlertsRaised = 0;
    std::int32_t lngHighRatedAlerts = 0;
    DriveTotals driveTotals;
    DateTime dtRefreshed;
    std::int32_t lngRefreshedKB = 0;
    bool bAutoUpdate = false;        ///< updates are asked for at start
    std::string sTrayTip;            ///< tip of the tray icon
    std::string strSettings;         ///< drive path of the settings file
    std::uint64_t lastFileTime = 0;  ///< system time from which files count as modified
    DateTime dtAppStart;
    std::int32_t lngStartFreeKB = 0;
};

struct Forms {
    Form1 form1;
    DlgAlert dlgAlert;
    SysWorkSystray sysWorkSystray;
    Icon0 icon0;
    FrmIndDri frmIndDri;
    FrmNotify frmNotify;
    Globals globals;

    std::vector<Form*> all();
    /// The form of that name, in any letter case; null when there is none.
    Form* find(const std::string& name);
};

}  // namespace velmora
