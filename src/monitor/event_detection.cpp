#include "monitor/event_detection.h"

#include "alerts/journal/alert_time.h"
#include "base/convert.h"
#include "base/runtime_error.h"

namespace velmora {

namespace {

std::string countText(double count) {
    return toText(static_cast<std::int64_t>(count));
}

}  // namespace

// The tests of one row.
struct EventPass::Pass {
    int row;
    double freeBytes;
    std::string text = {};  // of the row, from the first test on
    bool driveIsFound = false;
    std::string strEvents = {};
};

bool EventPass::checkEvents(int row, double freeBytes) {
    Pass pass{.row = row, .freeBytes = freeBytes};
    const bool any = runTests(pass);
    forms_.form1.StatusBar1.setPanelText(1, "Events Listing Check Done. 1");
    if (!pass.strEvents.empty()) report(pass);
    return any;
}

bool EventPass::runTests(Pass& pass) {
    const ListBox& events = forms_.form1.lstEvt;
    StatusBar& status = forms_.form1.StatusBar1;
    bool any = false;
    for (int event = 0; event < events.ListCount(); ++event) {
        if (!forms_.globals.bChecking) {
            status.setPanelText(2, "Ready (e2): ");
            break;
        }
        status.setPanelText(1, "Events Listing Check: ", toText(event));
        if (!events.Selected(event)) continue;
        if (!any) pass.text = ConstWatchRow(forms_.form1.ListView1.ListItems(pass.row)).path();
        any = true;
        status.setPanelText(1, "Checking Events for: ", events.List(event));
        test(event, pass);
    }
    return any;
}

void EventPass::test(int event, Pass& pass) {
    switch (event) {
        case evt::stagnancy:
        case evt::change:
            testFreeSpace(event, pass);
            break;
        case evt::quantity:
            testQuantity(pass);
            break;
        case evt::modification:
            testModification(pass);
            break;
        case evt::unavailable:
            // The test reads an object that is never set. Paths that become unavailable are
            // reported where a row isn't ready.
            throw RuntimeError(error::objectRequired);
        default:
            break;
    }
}

// The drive is looked up whether or not there is anything to compare with: a row that is no drive
// root and no share fails here. Its free space is the one that the check has found.
void EventPass::testFreeSpace(int event, Pass& pass) {
    if (!pass.driveIsFound) platform_.fso.GetDrive(pass.text);
    pass.driveIsFound = true;
    const ConstWatchRow row(forms_.form1.ListView1.ListItems(pass.row));
    if (!row.hasPreviousFree()) return;
    const std::string freeSpace =
        kilobyteText(pass.freeBytes, Grouping::regional, platform_.regional);
    const bool stagnant = row.previousFreeIs(freeSpace);
    if (stagnant != (event == evt::stagnancy)) return;
    pass.strEvents += (stagnant ? "Free space stagnancy in: " : "Free space change in: ") +
                      pass.text + " at size " + freeSpace + pieceEnd;
}

void EventPass::testQuantity(Pass& pass) {
    const ConstWatchRow row(forms_.form1.ListView1.ListItems(pass.row));
    if (!row.hasFolderCounts()) return;
    // Copies: other handlers may run while the folder is counted.
    const auto oldFiles = row.fileCount();
    const auto oldFolders = row.folderCount();
    const auto folder = folderOf(pass.text);
    if (!folder) return;
    const auto compare = [&](const char* words, const auto& old, auto count) {
        if (!old) return;
        const double before = toDouble(*old, platform_.regional);
        const double present = count();
        if (before == -1 || before == present) return;
        pass.strEvents +=
            words + pass.text + " from " + *old + " to " + countText(present) + pieceEnd;
    };
    compare("File Quantity changed in ", oldFiles, [&] { return folder->FilesCount(); });
    compare("Folder Quantity changed in ", oldFolders, [&] { return folder->SubFoldersCount(); });
}

void EventPass::testModification(const Pass& pass) {
    const std::string modified = prcChkFileTimes(pass.text);
    if (modified.empty()) return;
    parts_.alerts.prcAlertInfo(Format(platform_.clock.Now(), alert_time::slashedSeconds),
                               rating::high, "Files modified: " + modified, {},
                               &forms_.form1.ListView1.ListItems(pass.row));
}

std::string EventPass::prcChkFileTimes(const std::string& sPath) {
    std::string modified = parts_.waitTest.prcPubFindFilesByTime(sPath);
    forms_.globals.lastFileTime = platform_.clock.GetSystemTimeAsFileTime();
    return modified;
}

void EventPass::report(const Pass& pass) {
    Form1& form1 = forms_.form1;
    const std::string stamp = alert_time::dateAndTime(platform_.clock.Now());
    parts_.alerts.prcAlertInfo(stamp, rating::high, pass.strEvents, {},
                               &form1.ListView1.ListItems(pass.row));
    forms_.dlgAlert.Label1.prepend(stamp + " " + pass.strEvents);
    form1.txtAlert.prepend(pass.strEvents);
    const std::string soundFile = form1.txtAudio[0].Text();
    if (platform_.fso.FileExists(soundFile)) {
        parts_.systemActions.prcPlaySound(soundFile, sound::noDefault);
    }
    if (!forms_.dlgAlert.Visible() && form1.lstAct.Selected(act::alert)) parts_.alertDialog.show();
}

void EventPass::rowNotReady(int row) {
    WatchRow watched(forms_.form1.ListView1.ListItems(row));
    if (!forms_.form1.lstEvt.Selected(evt::unavailable)) return;
    if (!watched.hasPreviousFree() || !watched.hasFolderCounts()) return;
    parts_.alerts.prcAlertInfo(alert_time::dateAndTime(platform_.clock.Now()), rating::high,
                               "Drive Became Unavailable: " + watched.path(), checkFlags,
                               &watched.item());
    // Reported once, until the row has been measured again.
    watched.forgetFigures();
}

int EventPass::prcSetPrevInfoLV(ListItem& ItmX, double freeBytes) {
    return setPrevInfo(ItmX, freeBytes);
}

int EventPass::prcSetPrevInfoLV(ListItem& ItmX) {
    return setPrevInfo(ItmX, std::nullopt);
}

int EventPass::setPrevInfo(ListItem& item, std::optional<double> freeBytes) {
    WatchRow row(item);
    try {
        if (!row.isMeasured()) return 0;
        takeFigures(row, freeBytes);
        return 1;
    } catch (const std::exception&) {
        if (currentRuntimeError().number() == error::invalidCall) row.markNoDrive();
        return 0;
    }
}

// The drive is looked up even when its free space is known: a row that is no drive root and no
// share fails here.
void EventPass::takeFigures(WatchRow& row, std::optional<double> freeBytes) {
    const auto folder = folderOf(row.path());
    const auto drive = platform_.fso.GetDrive(row.path());
    row.keepPreviousFree();
    row.setFreeBytes(freeBytes ? *freeBytes : drive->FreeSpace(), Grouping::regional,
                     platform_.regional);
    row.setStamp(stamp_.of(platform_.clock.Now(), [this](const DateTime& now) {
        return dateText(now, platform_.regional);
    }));
    if (!folder) {
        row.setNoFolder();
        return;
    }
    const double files = folder->FilesCount();
    row.setFolderCounts(files, folder->SubFoldersCount());
}

// Null when there is no such folder; other failures are the caller's.
std::unique_ptr<Folder> EventPass::folderOf(const std::string& path) {
    try {
        return platform_.fso.GetFolder(path);
    } catch (const RuntimeError& failure) {
        if (failure.number() != error::pathNotFound) throw;
        return nullptr;
    }
}

}  // namespace velmora
