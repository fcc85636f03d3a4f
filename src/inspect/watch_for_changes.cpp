#include "inspect/watch_for_changes.h"

#include <utility>

#include "base/resume_next.h"
#include "inspect/change_type.h"

namespace velmora {

cWatchForChanges::~cWatchForChanges() {
    resumeNext([this] { StopWatch(); });
}

bool cWatchForChanges::StartWatch(std::string /*sPath*/, bool /*bWatchSubTree*/,
                                  std::int32_t /*nTimerInterval*/, bool /*bStartSuspended*/) {
    return false;
}

void cWatchForChanges::StopWatch() {
    // Cleared first, so that a second stop can't close a handle that the system has reused.
    if (const std::uint32_t window = std::exchange(hWnd, 0); window != 0) {
        // The timer is identified by the address of its watcher.
        user32_.KillTimer(window, reinterpret_cast<std::uintptr_t>(this));
        user32_.DestroyWindow(window);
    }
    for (std::uint32_t* handle : {&hName, &hSize, &hLastWrite, &hDirName}) close(*handle);
    SuspendWatch = false;
}

void cWatchForChanges::close(std::uint32_t& handle) {
    const std::uint32_t closing = std::exchange(handle, 0);
    if (closing != 0) kernel32_.FindCloseChangeNotification(closing);
}

void cWatchForChanges::prcPollChanges() {
    if (SuspendWatch) return;
    std::int32_t changes = fTestHandle(hName, change::name, 0);
    changes |= fTestHandle(hSize, change::size, 0);
    changes |= fTestHandle(hLastWrite, change::lastWrite, 0);
    changes |= fTestHandle(hDirName, change::dirName, 0);
    if (changes != 0) ChangeDetected(changes);
}

std::int32_t cWatchForChanges::fTestHandle(std::uint32_t handle, std::int32_t bit,
                                           std::uint32_t milliseconds) {
    if (kernel32_.WaitForSingleObject(handle, milliseconds) != waitObject0) return 0;
    kernel32_.FindNextChangeNotification(handle);
    return bit;
}

}  // namespace velmora
