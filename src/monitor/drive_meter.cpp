#include "monitor/drive_meter.h"

#include <algorithm>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

namespace {

// The gauges are upside down: their zero is at the top.
void point(Slider& gauge, double part, double whole) {
    const double highest = gauge.Max();
    const double value = highest - part / whole * highest;
    gauge.setValue(toInteger(std::clamp<double>(value, gauge.Min(), highest)));
}

}  // namespace

void DriveMeter::prcShowfrmIndDri(const std::string& path) {
    forms_.frmIndDri.lblP.setCaption(path);
    forms_.frmIndDri.Show();
}

void DriveMeter::prcSrvMeter(ListItem& item) {
    const ConstWatchRow row(item);
    if (!row.isReadyForGauges()) return;
    const double total = row.totalKBOrZero(platform_.regional);
    if (total <= 0) return;
    const double trigger = triggerKB(row, total);
    FrmIndDri& view = forms_.frmIndDri;
    point(view.VScroll1, trigger, total);
    point(view.VMeter1, trigger, total);
    point(view.VMeter2, row.freeKBOrZero(platform_.regional), total);
    listFigures(row);
}

void DriveMeter::prcSrvMeterPreSet(const std::string&) {
    if (!forms_.frmIndDri.Visible()) return;
    const std::string shown = lowerCase(forms_.frmIndDri.lblP.Caption());
    ListView& list = forms_.form1.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        ListItem& item = list.ListItems(i);
        if (lowerCase(ConstWatchRow(item).path()) == shown) return prcSrvMeter(item);
    }
}

// A trigger that isn't set is none.
double DriveMeter::triggerKB(const ConstWatchRow& row, double totalKB) const {
    const Form1& form1 = forms_.form1;
    const std::string& text = form1.chkDrive.ticked() ? row.trigger() : form1.txtSpace.Text();
    const double trigger = readNumber(text, platform_.regional).value_or(0);
    return form1.OpDriv[1].Value() ? trigger / 100 * totalKB : trigger;
}

void DriveMeter::listFigures(const ConstWatchRow& row) {
    ListView& list = forms_.frmIndDri.ListView1;
    list.Clear();
    const auto add = [&list](const char* property, const std::string& value) {
        list.Add(property).setSubItems(1, value);
    };
    add("Size", row.totalSize());
    add("Free Space", row.freeSpace());
    std::string folders = notAvailable;
    std::string files = notAvailable;
    try {
        const auto folder = platform_.fso.GetFolder(row.path());
        folders = toText(folder->SubFoldersCount(), platform_.regional);
        files = toText(folder->FilesCount(), platform_.regional);
    } catch (const RuntimeError&) {
        // The drive may be there without the folder.
    }
    add("Folders", folders);
    add("Files", files);
}

}  // namespace velmora
