#include "monitor/trigger_entry.h"

#include "base/convert.h"
#include "controls/keys.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora {

TriggerEntry::TriggerEntry(Form1& form1, FrmIndDri& frmIndDri, const Regional& regional, Host& host,
                           DriveMeter& driveMeter)
    : form1_(form1),
      frmIndDri_(frmIndDri),
      regional_(regional),
      host_(host),
      driveMeter_(driveMeter) {
    form1_.ListView1.MouseMove.connect([this](float x, float y) {
        pointerX_ = x;
        pointerY_ = y;
    });
    form1_.ListView1.DblClick.connect([this] { ListView1_DblClick(); });
    form1_.Text1.KeyPress.connect([this](int key) { Text1_KeyPress(key); });
    form1_.Text1.LostFocus.connect([this] { form1_.Text1.setVisible(false); });
}

void TriggerEntry::ListView1_DblClick() {
    ListItem* selected = form1_.ListView1.SelectedItem();
    if (selected == nullptr) return;
    frmIndDri_.Timer1.setEnabled(true);
    driveMeter_.prcShowfrmIndDri(ConstWatchRow(*selected).path());
    driveMeter_.prcSrvMeter(*selected);
    if (!form1_.chkDrive.ticked()) return;
    if (ListItem* row = rowUnderPointer()) placeOver(*row);
}

ListItem* TriggerEntry::rowUnderPointer() {
    return form1_.ListView1.HitTest(pointerX_ - 10, pointerY_ - 10);
}

void TriggerEntry::placeOver(ListItem& row) {
    ListView& list = form1_.ListView1;
    int index = 1;
    while (&list.ListItems(index) != &row) ++index;

    int left = list.bounds().Left;
    int column = 1;
    while (column < list.ColumnCount() &&
           static_cast<float>(left + list.ColumnHeaders(column).Width) <= pointerX_) {
        left += list.ColumnHeaders(column++).Width;
    }
    const ColumnHeader& header = list.ColumnHeaders(column);
    TextBox& box = form1_.Text1;
    box.setBounds({left - 160, list.rowTop(index) + list.bounds().Top + 750, header.Width,
                   ListView::rowHeight - 200});
    box.setVisible(true);
    box.setText(textUnder(row, column));
    if (header.Text == "Specified Drive Space") {
        box.selectAllAndFocus();
    } else {
        box.setVisible(false);
    }
}

void TriggerEntry::Text1_KeyPress(int key) {
    if (key != key::enter) return;
    ListItem* row = rowUnderPointer();
    if (row == nullptr) return;
    TextBox& box = form1_.Text1;
    if (!isNumeric(box.Text(), regional_)) {
        host_.MsgBox({.text = "You must enter a numeric value"});
        box.setText("");
        return;
    }
    WatchRow(*row).setTrigger(box.Text());
    box.setVisible(false);
}

}  // namespace velmora
