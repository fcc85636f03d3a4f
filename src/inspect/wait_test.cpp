#include "inspect/wait_test.h"

#include <utility>

#include "inspect/change_type.h"

namespace velmora {

namespace {

constexpr std::int32_t names = change::name | change::dirName;
constexpr std::int32_t times = change::size | change::lastWrite;

std::string lastResort(std::int32_t ChangeType) {
    const std::string word = fChangeTypeText(ChangeType);
    if (word.empty()) return {};
    return word +
           " changed but unable to detect changed file(s).  The change may have already been "
           "detected in the last notification.";
}

}  // namespace

WaitTest::WaitTest(FrmWaitTest& frmWaitTest, Globals& globals, Platform& platform, Host& host,
                   AlertSink& alerts)
    : frmWaitTest_(frmWaitTest),
      globals_(globals),
      platform_(platform),
      host_(host),
      alerts_(alerts) {
    frmWaitTest_.cmdStopWatch.Click.connect([this] { cmdStopWatch_Click(); });
    frmWaitTest_.Unload.connect([this] { Form_Unload(); });
}

std::string WaitTest::prcPubFindFilesByTime(const std::string& sPath) {
    std::uint64_t newest = 0;
    return velmora::fFindChangedTimes(
        platform_.kernel32, sPath, globals_.lastFileTime, newest, change::lastWrite,
        [&](std::size_t entries) { host_.ShowListing(sPath, entries); });
}

cWatchForChanges& WaitTest::watchBy(std::unique_ptr<cWatchForChanges> watcher) {
    watcher_ = std::move(watcher);
    watcher_->ChangeDetected.connect(
        [this](std::int32_t ChangeType) { m_oWatchDir_ChangeDetected(ChangeType); });
    return *watcher_;
}

std::string WaitTest::fFindChangedTimes(const std::string& sPath, std::uint64_t Reference,
                                        std::uint64_t& Newest, std::int32_t ChangeType) {
    return velmora::fFindChangedTimes(platform_.kernel32, sPath, Reference, Newest, ChangeType);
}

std::string WaitTest::fFindChangedNames(const std::string& sPath, std::int32_t ChangeType) {
    return velmora::fFindChangedNames(platform_.kernel32, sPath, aFiles, ChangeType);
}

void WaitTest::prcSnapshotDir(const std::string& sPath) {
    aFiles = snapshotOf(platform_.kernel32, sPath);
}

void WaitTest::m_oWatchDir_ChangeDetected(std::int32_t ChangeType) {
    std::uint64_t newest = 0;
    std::string report = whatChanged(ChangeType, newest);

    const DateTime now = platform_.clock.Now();
    if (report.empty()) report = "Unable to finde changed file.\r\n";
    TextBox& log = frmWaitTest_.txChanges;
    log.setText(log.Text() + "Change Logged At: " + Format(now, "hh:mm:ss") + "\r\n" + report +
                "\r\n");
    log.setSelStart(log.textLength());
    alerts_.raise(Format(now, "yyyy/mm/dd HH:mm:ss"), "High", report);
    host_.Beep();
    std::uint64_t& reference = globals_.lastFileTime;
    if (platform_.kernel32.CompareFileTime(newest, reference) == 1) reference = newest;
}

// Names first, then times, then at least the kind of change.
std::string WaitTest::whatChanged(std::int32_t ChangeType, std::uint64_t& newest) {
    std::string report;
    if ((ChangeType & names) != 0) report = changedNames(ChangeType);
    if (report.empty() && (ChangeType & times) != 0) {
        report = fFindChangedTimes(sWatchPath, globals_.lastFileTime, newest, ChangeType);
    }
    return report.empty() ? lastResort(ChangeType) : report;
}

std::string WaitTest::changedNames(std::int32_t ChangeType) {
    std::string report = fFindChangedNames(sWatchPath, ChangeType);
    if (!report.empty()) prcSnapshotDir(sWatchPath);
    return report;
}

void WaitTest::cmdStopWatch_Click() {
    if (watcher_) watcher_->StopWatch();
    watcher_.reset();
    frmWaitTest_.cmdStartWatch.setEnabled(true);
    frmWaitTest_.cmdSelectDir.setEnabled(true);
    frmWaitTest_.cmdStopWatch.setEnabled(false);
}

void WaitTest::Form_Unload() {
    watcher_.reset();
    aFiles.clear();
    frmWaitTest_.Hide();
}

}  // namespace velmora
