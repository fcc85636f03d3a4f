// The drive information dialog: its four views, and the rates that nothing shows.
#pragma once

#include <string>
#include <vector>

#include "forms/forms.h"
#include "inspect/charts/drive_charts.h"
#include "inspect/sectors/boot_sector_reader.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class DriveInfo {
  public:
    /// Connects its handlers to the form. All of the arguments must outlive it.
    DriveInfo(Forms& forms, Platform& platform, Host& host);
    DriveInfo(const DriveInfo&) = delete;
    DriveInfo& operator=(const DriveInfo&) = delete;

    /// Adds the drives to `cboDrives`, behind those that are there, and chooses the second entry.
    /// Error 380 where there is no second one.
    void prcFillDriveCombo();
    /// Computes the rates of change since the start and since the last refresh from the seconds of
    /// the minute that these times lie back. Error 11 where they are 0, 13 when a size is no
    /// number.
    void prcSpaceChangeRates();

  private:
    void Form_Load();
    void Form_Unload();
    void Combo1_Click();
    void cboDrives_Click();
    void cmdOK_Click();
    void placePanels();
    std::vector<std::string> drives();

    DlgDriveInfo& form_;
    Form1& form1_;
    const Globals& globals_;
    Platform& platform_;
    DriveCharts charts_;
    BootSectorReader reader_;
};

}  // namespace velmora
