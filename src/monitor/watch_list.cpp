#include "monitor/watch_list.h"

#include <algorithm>
#include <limits>

#include "alerts/journal/alert_time.h"
#include "base/convert.h"
#include "base/drive_text.h"
#include "base/text.h"

namespace velmora {

namespace {

// What a refresh looks for: a network path as it is, else the root in front.
std::string pathToTest(const std::string& text) {
    return left(text, 2) == "\\\\" ? text : left(text, 3);
}

}  // namespace

std::string WatchList::logicalDrives() {
    constexpr std::uint32_t size = 255;
    std::string buffer(size, ' ');
    const std::uint32_t used = platform_.kernel32.GetLogicalDriveStringsA(size, buffer);
    return buffer.substr(0, std::min<std::size_t>(used, buffer.size()));
}

void WatchList::measure(const std::string& root, Measure& measure) {
    const auto drive = platform_.fso.GetDrive(platform_.fso.GetDriveName(root));
    measure.path = drive->Path();
    if (drive->IsReady()) {
        const double freeBytes = drive->FreeSpace();
        const double totalBytes = drive->TotalSize();
        measure.shown.setReading(freeBytes, totalBytes, Grouping::regional, platform_.regional);
        measure.freeSum += kilobytes(freeBytes);
        measure.totalSum += kilobytes(totalBytes);
    } else {
        measure.shown.setNotReady();
    }
    form1_.lstInfo.AddItem("Drive: " + measure.path + "\t\t" + measure.shown.free);
}

void WatchList::RefreshDrive() {
    const std::string drives = logicalDrives();
    Measure sums;
    for (std::size_t at = 0; at < drives.size(); at += 4) {
        measure(drives.substr(at, 3), sums);
        WatchRow row(form1_.ListView1.Add(sums.path + "\\"));
        row.setReading(sums.shown);
    }
    finishRefresh(sums);
}

void WatchList::RefreshDriveExisting() {
    logicalDrives();
    ListView& list = form1_.ListView1;
    const int count = list.Count();
    Measure sums;
    for (int i = 1; i <= count; ++i) refreshRow(list.ListItems(i), sums);
    finishRefresh(sums);
}

void WatchList::refreshRow(ListItem& item, Measure& sums) {
    const std::string path = pathToTest(ConstWatchRow(item).path());
    if (!platform_.fso.FolderExists(path)) {
        markInaccessible(item, path);
        return;
    }
    measure(path, sums);
    WatchRow row(item);
    row.setPath(sums.path + "\\");
    row.setReading(sums.shown);
}

void WatchList::markInaccessible(ListItem& item, const std::string& path) {
    const std::string time = Format(platform_.clock.Now(), alert_time::minutes);
    alerts_.prcAlertInfo(time, rating::medium, WatchRow::inaccessible + path, {}, nullptr);
    WatchRow(item).markInaccessible();
}

void WatchList::finishRefresh(const Measure& sums) {
    DriveTotals& totals = globals_.driveTotals;
    const std::int32_t freeSum = static_cast<std::int32_t>(withinLong(sums.freeSum));
    if (totals.lngRefreshes > 0 && totals.lngFreeKB - freeSum == 0) totals.lngRateKB = 0;
    totals.dtLast = platform_.clock.Now();
    totals.lngFreeKB = freeSum;
    totals.lngRefreshes = addLong(totals.lngRefreshes, 1);
    totals.lngDrives = form1_.ListView1.Count();
    totals.lngSizeKB = static_cast<std::int32_t>(withinLong(sums.totalSum));
    globals_.dtRefreshed = platform_.clock.Now();
    globals_.lngRefreshedKB = totals.lngFreeKB;
}

void WatchList::prcLVBold(ListView& thisLV) {
    if (globals_.bChecking) return;
    const int count = thisLV.Count();
    for (int i = 1; i <= count && i <= thisLV.Count(); ++i) {
        ListItem& row = thisLV.ListItems(i);
        row.setBold(row.Checked());
        for (int sub = 1; sub <= row.SubItemCount(); ++sub) row.setSubBold(sub, row.Checked());
    }
}

void WatchList::removeSelected(ListView& list) {
    for (int i = list.Count(); i >= 1; --i) {
        if (list.ListItems(i).Selected()) list.Remove(i);
    }
}

void WatchList::prcClnLV(ListView& thisLV) {
    for (int i = thisLV.Count(); i >= 1; --i) {
        const ListItem& row = thisLV.ListItems(i);
        if (row.Text().empty() && row.Tag().empty()) thisLV.Remove(i);
    }
}

}  // namespace velmora
