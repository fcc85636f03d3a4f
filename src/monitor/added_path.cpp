#include "monitor/added_path.h"

#include "base/runtime_error.h"
#include "rows/watch_row.h"

namespace velmora {

bool addWatchedPath(ListView& list, const std::string& path, Platform& platform, Host& host) {
    WatchRow row(list.Add(path));
    const std::string driveName = platform.fso.GetDriveName(path);
    if (!platform.fso.DriveExists(driveName)) {
        if (platform.fso.FolderExists(path)) {
            platform.fso.GetFolder(path);
            // A folder, unlike a drive, has no readiness to ask for.
            throw RuntimeError(error::unsupportedMember);
        }
        host.MsgBox({.text = "The selected item is not found or unavailable. Check configuration.",
                     .icon = BoxIcon::critical});
        return false;
    }
    const auto drive = platform.fso.GetDrive(driveName);
    if (drive->IsReady()) {
        row.setFreeBytes(drive->FreeSpace(), Grouping::none, platform.regional);
        row.setTotalBytes(drive->TotalSize(), Grouping::none, platform.regional);
    } else {
        row.markNotReadyWhenAdded();
    }
    return true;
}

}  // namespace velmora
