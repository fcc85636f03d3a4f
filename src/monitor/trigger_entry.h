// Entering a row's trigger in place: a double click on the list opens the drive's view and places
// the text box over the cell under the pointer.
#pragma once

#include "base/regional.h"
#include "forms/form1.h"
#include "forms/frm_ind_dri.h"
#include "monitor/drive_meter.h"
#include "platform/host.h"

namespace velmora {

class TriggerEntry {
  public:
    /// Connects the handlers to the forms.
    TriggerEntry(Form1& form1, FrmIndDri& frmIndDri, const Regional& regional, Host& host,
                 DriveMeter& driveMeter);
    TriggerEntry(const TriggerEntry&) = delete;
    TriggerEntry& operator=(const TriggerEntry&) = delete;

  private:
    void ListView1_DblClick();
    ListItem* rowUnderPointer();
    void placeOver(ListItem& row);
    void Text1_KeyPress(int key);

    Form1& form1_;
    FrmIndDri& frmIndDri_;
    const Regional& regional_;
    Host& host_;
    DriveMeter& driveMeter_;
    float pointerX_ = 0;  // twips within the list, as the mouse last moved
    float pointerY_ = 0;
};

}  // namespace velmora
