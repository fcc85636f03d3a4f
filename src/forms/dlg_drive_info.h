// The drive information dialog: charts of the watch list, the boot sector of a volume, the
// attributes of a drive.
#pragma once

#include <array>

#include "controls/buttons.h"
#include "controls/chart.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "controls/text_box.h"

namespace velmora {

/// The views of the dialog by the index of `Combo1`.
namespace drive_view {
inline constexpr int freeSpace = 0;
inline constexpr int distribution = 1;
inline constexpr int partition = 2;
inline constexpr int attributes = 3;
}  // namespace drive_view

class DlgDriveInfo : public Form {
  public:
    DlgDriveInfo();

    Label Label6{*this, "Label6", "Advance Data Display"};
    Label Label5{*this, "Label5",
                 "The information visualized here provides a different perspective into the "
                 "current free space and drive settings.  The information can help the user in "
                 "make better informed decisions into managing their free space."};
    Label lblHelp{*this, "lblHelp", "Press F1 for help."};
    ComboBox Combo1{*this, "Combo1"};  ///< the view
    CommandButton cmdHistory{*this, "cmdHistory", "&History"};
    Label lblDesc{*this, "lblDesc"};
    std::array<Chart, 2> MSChart1{{{*this, "MSChart1", 0}, {*this, "MSChart1", 1}}};

    // The boot sector.
    Frame frmPart{*this, "frmPart", "Drive Partition Info."};
    Label lblDrive{*this, "lblDrive", "Partition:"};
    ComboBox drvDrive{*this, "drvDrive"};
    Label lblReason{*this, "lblReason"};  ///< why the last volume couldn't be read; often empty
    CommandButton cmdEnter{*this, "cmdEnter", "&Enter"};
    Frame fraPartInfo{*this, "fraPartInfo", "Partition Info, obtained directly from boot record"};
    ListView lvInfo{*this, "lvInfo"};  ///< label and value
    Label Label3{*this, "Label3", "First 512 Bytes of partition:"};
    TextBox txtBytes{*this, "txtBytes"};  ///< in hexadecimal
    TextBox txtChar{*this, "txtChar"};    ///< as characters

    // The attributes of a drive.
    Frame frmAD{*this, "frmAD", "Drive Attribute Info."};
    ComboBox cboDrives{*this, "cboDrives"};
    std::array<Label, 8> lblCaption{{{*this, "lblCaption", "Available Drives:", 0},
                                     {*this, "lblCaption", "Drive Type:", 1},
                                     {*this, "lblCaption", "Sectors per Cluster:", 2},
                                     {*this, "lblCaption", "Bytes per Sector:", 3},
                                     {*this, "lblCaption", "Free Clusters:", 4},
                                     {*this, "lblCaption", "Total Clusters:", 5},
                                     {*this, "lblCaption", "Total Free Space:", 6},
                                     {*this, "lblCaption", "Total Drive Space:", 7}}};
    std::array<Label, 7> lblInfo{{{*this, "lblInfo", "", 0},
                                  {*this, "lblInfo", "", 1},
                                  {*this, "lblInfo", "", 2},
                                  {*this, "lblInfo", "", 3},
                                  {*this, "lblInfo", "", 4},
                                  {*this, "lblInfo", "", 5},
                                  {*this, "lblInfo", "", 6}}};

    // The rates, which nothing computes, and a list that nothing fills.
    Frame Frame1{*this, "Frame1", "Free Space Data"};
    Label lblTime{*this, "lblTime", "Elapsed Time:"};
    Label Label2{*this, "Label2", "Rate of Change:"};
    Label Label1{*this, "Label1", "Free Space on First Start:"};
    Label lblFreeSpNow{*this, "lblFreeSpNow", "Free Space Now:"};
    Label lblNTime{*this, "lblNTime", ":"};
    Label lblNRate{*this, "lblNRate", ":"};
    Label lblNFreeStart{*this, "lblNFreeStart", ":"};
    Label lblNFreeSpaceNow{*this, "lblNFreeSpaceNow", ":"};
    Label lbl0{*this, "lbl0"};
    Label lbl1{*this, "lbl1"};
    Label lblSpaceChangeOpen{*this, "lblSpaceChangeOpen", "Label1"};
    Label lblSpaceLastUpdate{*this, "lblSpaceLastUpdate", "Label1"};
    Frame Frame2{*this, "Frame2", "Top 10"};
    ListView LVTop{*this, "LVTop"};

    CommandButton cmdOK{*this, "cmdOK", "OK"};
};

}  // namespace velmora
