// The scans of frmWaitTest. The check asks it for the files of a folder that are newer than the
// reference time; the interactive watch reports the changes that a watcher finds, but nothing in
// the program starts one.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "forms/forms.h"
#include "inspect/folder_scan.h"
#include "inspect/ports.h"
#include "inspect/watch_for_changes.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class WaitTest {
  public:
    /// Connects its handlers to the form, which must outlive it like the rest.
    WaitTest(FrmWaitTest& frmWaitTest, Globals& globals, Platform& platform, Host& host,
             AlertSink& alerts);
    WaitTest(const WaitTest&) = delete;
    WaitTest& operator=(const WaitTest&) = delete;

    /// The files and folders in that folder that were written or created later than
    /// `Globals::lastFileTime`, two lines each; empty for none and for a folder that can't be read.
    std::string prcPubFindFilesByTime(const std::string& sPath);

    /// The watched path.
    std::string sWatchPath;
    /// What the watched folder held when it was last looked at.
    Snapshot aFiles;
    /// The watcher; null while nothing is watched.
    const cWatchForChanges* m_oWatchDir() const { return watcher_.get(); }
    /// Takes a watcher and connects to its changes. The previous one ends its watch.
    cWatchForChanges& watchBy(std::unique_ptr<cWatchForChanges> watcher);

    std::string fFindChangedTimes(const std::string& sPath, std::uint64_t Reference,
                                  std::uint64_t& Newest, std::int32_t ChangeType);
    /// Compares with `aFiles`.
    std::string fFindChangedNames(const std::string& sPath, std::int32_t ChangeType);
    /// Puts the folder's entries into `aFiles`.
    void prcSnapshotDir(const std::string& sPath);
    /// Reports a change of the watched folder: in the form's text, as an alert and by a beep.
    /// Errors of the alert go to the caller, with the text written.
    void m_oWatchDir_ChangeDetected(std::int32_t ChangeType);

  private:
    std::string whatChanged(std::int32_t ChangeType, std::uint64_t& newest);
    std::string changedNames(std::int32_t ChangeType);
    void cmdStopWatch_Click();
    void Form_Unload();

    FrmWaitTest& frmWaitTest_;
    Globals& globals_;
    Platform& platform_;
    Host& host_;
    AlertSink& alerts_;
    std::unique_ptr<cWatchForChanges> watcher_;
};

}  // namespace velmora
