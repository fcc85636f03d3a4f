// The watcher of a folder by the system's notifications: four handles, one for each kind of change,
// and a window whose timer polls them. Nothing in the program starts a watch: a caller has to set
// the handles and call the poll.
#pragma once

#include <cstdint>
#include <string>

#include "controls/event.h"
#include "platform/kernel32.h"
#include "platform/user32.h"

namespace velmora {

class cWatchForChanges {
  public:
    cWatchForChanges(Kernel32& kernel32, User32& user32) : kernel32_(kernel32), user32_(user32) {}
    /// Stops the watch.
    ~cWatchForChanges();
    cWatchForChanges(const cWatchForChanges&) = delete;
    cWatchForChanges& operator=(const cWatchForChanges&) = delete;

    /// Of the window that has the timer; 0 for none, as with the handles.
    std::uint32_t hWnd = 0;
    /// The notifications, one for each kind of change.
    std::uint32_t hName = 0;
    std::uint32_t hSize = 0;
    std::uint32_t hLastWrite = 0;
    std::uint32_t hDirName = 0;
    /// While it is true, a poll does nothing.
    bool SuspendWatch = false;

    /// The bits of what changed.
    Event<std::int32_t> ChangeDetected;

    /// False: a watch can't be started.
    bool StartWatch(std::string sPath, bool bWatchSubTree, std::int32_t nTimerInterval,
                    bool bStartSuspended);
    /// Releases the timer, the window and the handles. Stopping twice does nothing.
    void StopWatch();
    /// Asks the four handles, without waiting, and reports what changed, if anything did. Its
    /// handler must not destroy this watcher.
    void prcPollChanges();
    /// Waits for one handle for so many milliseconds: `bit` when it was signalled, which makes it
    /// wait for the next change; 0 otherwise.
    std::int32_t fTestHandle(std::uint32_t handle, std::int32_t bit, std::uint32_t milliseconds);

  private:
    void close(std::uint32_t& handle);

    Kernel32& kernel32_;
    User32& user32_;
};

}  // namespace velmora
