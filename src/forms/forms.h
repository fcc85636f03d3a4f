// All forms of the program and the globals that they share.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "forms/dialogs.h"
#include "forms/dlg_drive_info.h"
#include "forms/form1.h"
#include "forms/frm_history.h"
#include "forms/frm_ind_dri.h"
#include "forms/frm_notify.h"
#include "forms/frm_wizard.h"
#include "forms/hints.h"

namespace velmora {

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
    std::string iconHandle;          ///< the icon shown in the notification area, by its key
    bool bLocked = false;            ///< the windows are locked by a password
    std::string sLockPassword;       ///< as entered; nowhere but here, and wiped on unlocking
    int iTranslucency = 100;         ///< in percent, 100 is opaque
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
    FrmLock frmLock;
    FrmAbout frmAbout;
    Icon1 icon1;
    DlgDriveInfo dlgDriveInfo;
    FrmWizard frmWizard;
    FrmWaitTest frmWaitTest;
    FrmHistory frmHistory;
    Globals globals;
    Hints hints;

    std::vector<Form*> all();
    /// The form of that name, in any letter case; null when there is none.
    Form* find(const std::string& name);
};

}  // namespace velmora
