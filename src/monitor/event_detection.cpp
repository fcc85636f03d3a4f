#include "monitor/event_detection.h"

#include <optional>
#include <string_view>

#include "alerts/journal/alert_time.h"
#include "base/convert.h"
#include "base/drive_text.h"
#include "base/format_number.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "rows/watch_row.h"

namespace velmora {

namespace {

constexpr const char* eventEnd = "\r\n.\r\n";
constexpr const char* fileCount = "file:";
constexpr const char* folderCount = "fold:";

// The stored number after that word; nothing when the tag holds none.
std::optional<std::string> storedCount(const std::string& tag, std::string_view word) {
    const std::size_t at = tag.find(word);
    if (at == std::string::npos) return {};
    const std::size_t begin = at + word.size();
    const std::size_t end = tag.find('|', begin);
    if (end == std::string::npos) return {};
    return tag.substr(begin, end - begin);
}

std::string countText(double count) {
    return toText(static_cast<std::int64_t>(count));
}

}  // namespace

// The tests of one row. A reading of the drive serves both tests of its free space.
struct EventPass::Pass {
    int row;
    std::string text;  // of the row
    std::string strEvents = {};
    std::optional<std::string> freeText = {};
};

void EventPass::checkEvents(int row) {
    Pass pass{.row = row, .text = forms_.form1.ListView1.ListItems(row).Text()};
    runTests(pass);
    forms_.form1.StatusBar1.setPanelText(1, "Events Listing Check Done. 1");
    if (!pass.strEvents.empty()) report(pass);
}

void EventPass::runTests(Pass& pass) {
    const ListBox& events = forms_.form1.lstEvt;
    StatusBar& status = forms_.form1.StatusBar1;
    for (int event = 0; event < events.ListCount(); ++event) {
        if (!forms_.globals.bChecking) {
            status.setPanelText(2, "Ready (e2): ");
            return;
        }
        status.setPanelText(1, "Events Listing Check: ", toText(event));
        if (!events.Selected(event)) continue;
        status.setPanelText(1, "Checking Events for: ", events.List(event));
        test(event, pass);
    }
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
            // The test reads an item that nothing ever sets. Paths that go away are reported where
            // a row isn't ready.
            throw RuntimeError(error::objectRequired);
        default:
            break;
    }
}

// The drive is read whether or not there is anything to compare it with: a row that is no drive
// root and no share fails here.
void EventPass::testFreeSpace(int event, Pass& pass) {
    if (!pass.freeText) pass.freeText = freeText(pass.text);
    const std::string& previous =
        WatchRow(forms_.form1.ListView1.ListItems(pass.row)).previousFree();
    if (previous.empty()) return;
    const bool stagnant = previous == *pass.freeText;
    if (stagnant != (event == evt::stagnancy)) return;
    pass.strEvents += (stagnant ? "Free space stagnancy in: " : "Free space change in: ") +
                      pass.text + " at size " + *pass.freeText + " KB" + eventEnd;
}

void EventPass::testQuantity(Pass& pass) {
    // A copy: other handlers may run while the folder is counted.
    const std::string tag = WatchRow(forms_.form1.ListView1.ListItems(pass.row)).folderCounts();
    if (tag.empty()) return;
    const auto folder = folderOf(pass.text);
    if (!folder) return;
    const auto compare = [&](const char* word, const char* words, auto count) {
        const auto old = storedCount(tag, word);
        if (!old) return;
        const double before = toDouble(*old, platform_.regional);
        const double present = count();
        if (before == -1 || before == present) return;
        pass.strEvents +=
            words + pass.text + " from " + *old + " to " + countText(present) + eventEnd;
    };
    compare(fileCount, "File Quantity changed in ", [&] { return folder->FilesCount(); });
    compare(folderCount, "Folder Quantity changed in ", [&] { return folder->SubFoldersCount(); });
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
    if (watched.previousFree().empty() || watched.folderCounts().empty()) return;
    parts_.alerts.prcAlertInfo(alert_time::dateAndTime(platform_.clock.Now()), rating::high,
                               "Drive Became Unavailable: " + watched.path(), checkFlags,
                               &watched.item());
    // Told once, until the row has been measured again.
    watched.setPreviousFree("");
    watched.setFolderCounts("");
}

int EventPass::prcSetPrevInfoLV(ListItem& ItmX) {
    WatchRow row(ItmX);
    try {
        if (row.freeSpace().empty() || contains(lowerCase(row.freeSpace()), "n/a")) return 0;
        takeFigures(ItmX);
        return 1;
    } catch (const std::exception&) {
        if (currentRuntimeError().number() == error::invalidCall) {
            row.setFolderCounts("");
            row.setFreeSpace("N/A check drive or media");
        }
        return 0;
    }
}

void EventPass::takeFigures(ListItem& item) {
    WatchRow row(item);
    const auto folder = folderOf(row.path());
    const auto drive = platform_.fso.GetDrive(row.path());
    row.setPreviousFree(replaceAll(row.freeSpace(), " KB", ""));
    row.setFreeSpace(kilobyteText(drive->FreeSpace(), Grouping::regional, platform_.regional));
    row.setStamp(presentDateAndTime());
    if (!folder) {
        row.setFolderCounts("N/A");
        return;
    }
    const std::string files = countText(folder->FilesCount());
    const std::string folders = countText(folder->SubFoldersCount());
    row.setFolderCounts(fileCount + files + "|" + folderCount + folders + "|");
}

std::string EventPass::freeText(const std::string& path) {
    const auto drive = platform_.fso.GetDrive(path);
    return FormatNumber(drive->FreeSpace() / 1024, 0, Grouping::regional, platform_.regional);
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

// Thousands of rows are measured in a second; its text is made once.
const std::string& EventPass::presentDateAndTime() {
    const DateTime now = platform_.clock.Now();
    if (now != stamped_ || stampText_.empty()) {
        stamped_ = now;
        stampText_ = dateText(now, platform_.regional);
    }
    return stampText_;
}

}  // namespace velmora
