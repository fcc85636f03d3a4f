#include "alerts/actions/small_actions.h"

#include "alerts/journal/failed_recycling.h"
#include "alerts/lists/listed_rows.h"
#include "base/convert.h"
#include "base/scope_guard.h"
#include "base/text.h"
#include "forms/action_entries.h"
#include "platform/show_window.h"
#include "rows/listed_file.h"

namespace velmora {

namespace {

// The number under which the disk cleaner has stored its options.
constexpr const char* cleanerSet = "12";

}  // namespace

// A path that is never sent counts as one that the system has refused: its row must not keep those
// behind it from their turn.
std::int32_t SmallActions::sendToBin(const std::string& path) {
    constexpr std::int32_t accessDenied = 5;
    if (!parts_.system.maySendToBin(path)) return accessDenied;
    return parts_.system.prcSendToBin(path, file_operation::allowUndo);
}

void SmallActions::recycle(Shortage& shortage) {
    ListView& files = parts_.forms.form1.LVFile;
    const ListedRow first = listedRow(files, 1);
    // The shell may ask the user while handlers run: the row may have another index afterwards.
    const std::int32_t code = sendToBin(first.path);
    removeListedRow(files, first);
    // Behind the alert, also where that fails.
    const ScopeGuard tell([&] {
        noteFailedRecycling(parts_.host, parts_.platform, parts_.alerts, first.path, code);
    });
    // The short row's index in the list of files: it names another file than the one sent.
    raiseNote(
        parts_, shortage,
        "Auto send file to recycle bin: " + ConstListedFile(files.ListItems(shortage.row)).path());
}

void SmallActions::autoMove(Shortage& shortage) {
    Form1& form1 = parts_.forms.form1;
    const int k = rowWithSpace(shortage);
    if (k == 0) return;
    ListItem& target = form1.ListView1.ListItems(k);
    std::string strLarge = ConstWatchRow(target).path();
    // A path is no number, so the conversion fails and the action ends here. This is intended.
    std::int16_t maxFiles = toInteger(parts_.row(shortage).path(), parts_.platform.regional);
    std::int16_t iAct = act::autoMove;
    std::string strPath;
    std::string strFile;
    fileActions_.prcFileAct(iAct, target, maxFiles, strLarge, strPath, strFile);
    const std::string threshold =
        form1.OpDriv[0].Value() ? form1.txtSpace.Text() : parts_.row(shortage).trigger();
    shortage.lngMinSpace = toLong(threshold, parts_.platform.regional);
}

// From the end, so that the present order of the list decides; 0 when there is none.
int SmallActions::rowWithSpace(const Shortage& shortage) {
    const ListView& list = parts_.forms.form1.ListView1;
    for (int k = list.Count(); k >= 1; --k) {
        if (k != shortage.row && ConstWatchRow(list.ListItems(k)).isAvailable()) return k;
    }
    return 0;
}

void SmallActions::playSound() {
    const std::string chosen = parts_.forms.form1.txtAudio[0].Text();
    const bool exists = parts_.platform.fso.FileExists(chosen);
    const std::string fallback = parts_.platform.app.Path + "\\sound\\alert.WAV";
    parts_.system.prcPlaySound(exists ? chosen : fallback, sound::noDefault);
}

// Without flags the system asks the user and shows its own dialogs.
void SmallActions::emptyBin(Shortage& shortage) {
    parts_.system.MakeRecycleBinEmpty("", 0, 0, 0);
    raiseNote(parts_, shortage, "Recycle Bin Content Emptied.");
}

void SmallActions::runListed(Shortage& shortage) {
    Form1& form1 = parts_.forms.form1;
    const int count = form1.LVFile.Count();
    for (int j = 1; j <= count; ++j) {
        const std::string path = ConstListedFile(form1.LVFile.ListItems(j)).path();
        if (parts_.platform.fso.FileExists(path)) {
            parts_.platform.shell32.ShellExecuteA(form1.Name(), "open", path, "0", "",
                                                  normalWindow);
            shortage.strAlert += " - Specified Program Executed: \r\n" + path + "\r\n";
        } else {
            shortage.strAlert +=
                " - Specified Program Execution Failed (File Does Not Exist): \r\n" + path + "\r\n";
        }
    }
    raiseNote(parts_, shortage, shortage.strAlert);
}

// The alert says so whatever became of the mail.
void SmallActions::sendMail(Shortage& shortage) {
    parts_.forms.frmNotify.SendEmail();
    raiseNote(parts_, shortage, "Notification Email Sent.");
}

void SmallActions::startCleaner(Shortage& shortage) {
    const std::string path = parts_.row(shortage).path();
    parts_.system.prcCleanMan(cleanedDrive(path), cleanerSet);
    raiseNote(parts_, shortage, "Clean Manager Called.");
}

// The letter of an existing path's drive; any other text stays.
std::string SmallActions::cleanedDrive(const std::string& path) {
    FileSystemObject& fso = parts_.platform.fso;
    if (path.starts_with("//")) return path;
    if (!fso.FileExists(path) && !fso.FolderExists(path)) return path;
    return fso.GetDrive(fso.GetDriveName(path))->DriveLetter();
}

// The actions and rows that follow still run in this pass.
void SmallActions::pause(Shortage& shortage) {
    raiseNote(parts_, shortage, "Program paused by user option to pause on alert event.");
    parts_.forms.form1.Timer1.setEnabled(false);
    parts_.forms.form1.cmdPause.Click();
}

}  // namespace velmora
