#include "forms/dlg_drive_info.h"

namespace velmora {

DlgDriveInfo::DlgDriveInfo() : Form("dlgDriveInfo", "Advance Data Display - Velmora") {
    setSize(10200, 8400);
    for (const char* view : {"Free Space By Drive(s)", "Total Free Space Distribution",
                             "Drive Partition Info.", "Drive Attribute Info."}) {
        Combo1.AddItem(view);
    }
    MSChart1[0].setBounds({.Left = 240, .Top = 1500});
    MSChart1[1].setBounds({.Left = 240, .Top = 1500});
    lvInfo.addColumn({""});
    lvInfo.addColumn({""});
    Frame1.setVisible(false);
    Frame2.setVisible(false);
}

}  // namespace velmora
