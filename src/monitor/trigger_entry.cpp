#include "monitor/trigger_entry.h"

#include "base/convert.h"
#include "controls/keys.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora {

TriggerEntry::TriggerEntry(Forms& forms, Platform& platform, Host& host, DriveMeter& driveMeter)
    : forms_(forms), platform_(platform), host_(host), driveMeter_(driveMeter) {
    Form1& form1 = forms_.form1;
    form1.ListView1.MouseMove.connect([this](float x, float y) {
        pointerX_ = x;
        pointerY_ = y;
    });
    form1.ListView1.DblClick.connect([this] { ListView1_DblClick(); });
    form1.Text1.KeyPress.connect([this](int key) { Text1_KeyPress(key); });
    form1.Text1.LostFocus.connect([&form1] { form1.Text1.setVisible(false); });
}

void TriggerEntry::ListView1_DblClick() {
    ListItem* selected = forms_.form1.ListView1.SelectedItem();
    if (selected == nullptr) return;
    forms_.frmIndDri.Timer1.setEnabled(true);
    driveMeter_.prcShowfrmIndDri(ConstWatchRow(*selected).path());
    driveMeter_.prcSrvMeter(*selected);
    if (!forms_.form1.chkDrive.ticked()) return;
    if (ListItem* row = rowUnderPointer()) placeOver(*row);
}

ListItem* TriggerEntry::rowUnderPointer() {
    return forms_.form1.ListView1.HitTest(pointerX_ - 10, pointerY_ - 10);
}

void TriggerEntry::placeOver(ListItem& row) {
    Form1& form1 = forms_.form1;
    ListView& list = form1.ListView1;
    int index = 1;
    while (&list.ListItems(index) != &row) ++index;

    int left = list.bounds().Left;
    int column = 1;
    while (column < list.ColumnCount() &&
           static_cast<float>(left + list.ColumnHeaders(column).Width) <= pointerX_) {
        left += list.ColumnHeaders(column++).Width;
    }
    const ColumnHeader& header = list.ColumnHeaders(column);
    TextBox& box = form1.Text1;
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
    TextBox& box = forms_.form1.Text1;
    if (!isNumeric(box.Text(), platform_.regional)) {
        host_.MsgBox({.text = "You must enter a numeric value"});
        box.setText("");
        return;
    }
    WatchRow(*row).setTrigger(box.Text());
    box.setVisible(false);
}

}  // namespace velmora
