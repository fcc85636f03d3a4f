#include "monitor/drive_meter.h"

#include <algorithm>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "rows/watch_row.h"

namespace velmora {

namespace {

constexpr const char* notAvailable = "N/A";

bool isUnavailable(const std::string& freeSpace) {
    const std::string lower = lowerCase(freeSpace);
    return contains(lower, "n/a") || contains(lower, "not ready");
}

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
    const WatchRow row(item);
    if (isUnavailable(row.freeSpace())) return;
    const double total = kilobytesOf(row.totalSize());
    if (total <= 0) return;
    const double trigger = triggerKB(item, total);
    FrmIndDri& view = forms_.frmIndDri;
    point(view.VScroll1, trigger, total);
    point(view.VMeter1, trigger, total);
    point(view.VMeter2, kilobytesOf(row.freeSpace()), total);
    listFigures(item);
}

void DriveMeter::prcSrvMeterPreSet(const std::string&) {
    if (!forms_.frmIndDri.Visible()) return;
    const std::string shown = lowerCase(forms_.frmIndDri.lblP.Caption());
    ListView& list = forms_.form1.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        if (lowerCase(list.ListItems(i).Text()) == shown) return prcSrvMeter(list.ListItems(i));
    }
}

// A trigger that isn't set is none.
double DriveMeter::triggerKB(const ListItem& row, double totalKB) const {
    const Form1& form1 = forms_.form1;
    const std::string& text =
        form1.chkDrive.ticked() ? row.SubItems(WatchRow::columnTrigger - 1) : form1.txtSpace.Text();
    const double trigger = readNumber(text, platform_.regional).value_or(0);
    return form1.OpDriv[1].Value() ? trigger / 100 * totalKB : trigger;
}

double DriveMeter::kilobytesOf(const std::string& text) const {
    return readNumber(replaceAll(text, " KB", ""), platform_.regional).value_or(0);
}

void DriveMeter::listFigures(const ListItem& row) {
    ListView& list = forms_.frmIndDri.ListView1;
    list.Clear();
    const auto add = [&list](const char* property, const std::string& value) {
        list.Add(property).setSubItems(1, value);
    };
    add("Size", row.SubItems(WatchRow::columnTotal - 1));
    add("Free Space", row.SubItems(WatchRow::columnFree - 1));
    std::string folders = notAvailable;
    std::string files = notAvailable;
    try {
        const auto folder = platform_.fso.GetFolder(row.Text());
        folders = toText(folder->SubFoldersCount(), platform_.regional);
        files = toText(folder->FilesCount(), platform_.regional);
    } catch (const RuntimeError&) {
        // The drive may be there without the folder.
    }
    add("Folders", folders);
    add("Files", files);
}

}  // namespace velmora
