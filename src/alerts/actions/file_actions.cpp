#include "alerts/actions/file_actions.h"

#include "alerts/journal/failed_recycling.h"
#include "alerts/lists/listed_rows.h"
#include "base/convert.h"
#include "base/drive_text.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/action_entries.h"
#include "platform/file_system_object.h"
#include "rows/listed_file.h"

namespace velmora {

// What prcFileActOption does, one file.

std::string FileActions::prcFileActOption(std::int16_t& iAct, std::string& strFile,
                                          std::string& strPath) {
    std::string result = file_result::notHandled;
    switch (iAct) {
        case act::move:
            result = move(strFile, strPath);
            break;
        case act::remove:
            result = remove(strFile, strPath);
            break;
        case act::recycle:
            result = recycle(strFile);
            break;
        case act::autoMove:
            result = autoMove(strFile, strPath);
            break;
        default:
            break;
    }
    parts_.forms.form1.StatusBar1.setPanelText(1, "File Action on: ", strFile);
    return result;
}

// Compares free KB with the file's bytes: this is the rule.
std::string FileActions::move(const std::string& strFile, const std::string& strPath) {
    const double freeKB = availableKB(strPath);
    const double bytes = sizeOf(strFile);
    if (freeKB <= bytes) return file_result::notHandled;
    const bool moved = moveAndReport(strFile, strPath, bytes);
    return moved ? file_result::handled : file_result::notHandled;
}

// Compares KB with KB.
std::string FileActions::autoMove(const std::string& strFile, const std::string& strPath) {
    FileSystemObject& fso = parts_.platform.fso;
    if (!fso.DriveExists(strPath) && !fso.FolderExists(strPath)) return file_result::noTarget;
    const double freeKB = availableKB(strPath);
    const double bytes = sizeOf(strFile);
    if (bytes / 1024 >= freeKB) return file_result::notHandled;
    StatusBar& status = parts_.forms.form1.StatusBar1;
    const std::string before = status.Panels(2).Text;
    status.setPanelText(2, "Moving file: ", strFile);
    if (!moveAndReport(strFile, strPath, bytes)) return file_result::notHandled;
    status.setPanelText(2, before);
    return file_result::handled;
}

double FileActions::sizeOf(const std::string& strFile) {
    return attempt("measure the file", strFile,
                   [&] { return parts_.platform.files.FileLen(strFile); });
}

double FileActions::availableKB(const std::string& strPath) {
    FileSystemObject& fso = parts_.platform.fso;
    if (fso.DriveExists(strPath)) return kilobytes(fso.GetDrive(strPath)->AvailableSpace());
    // A folder has no such member; where nothing exists there is no object to ask.
    throw RuntimeError(fso.FolderExists(strPath) ? error::unsupportedMember
                                                 : error::objectRequired);
}

bool FileActions::moveAndReport(const std::string& strFile, const std::string& strPath,
                                double bytes) {
    const std::string target =
        strPath + (endsInSeparator(strPath) ? "" : "\\") + parts_.platform.fso.GetFileName(strFile);
    const bool moved = parts_.platform.kernel32.MoveFileA(strFile, target) == 1;
    report(moved ? "Auto Moved File: " : "Failed Auto Moved File: ", strFile, strPath, bytes);
    return moved;
}

std::string FileActions::remove(const std::string& strFile, const std::string& strPath) {
    if (!parts_.platform.fso.FileExists(strFile)) return file_result::notHandled;
    const double bytes = sizeOf(strFile);
    attempt("delete the file", strFile, [&] { parts_.platform.files.remove(strFile); });
    report("Auto Deleted File: ", strFile, strPath, bytes);
    return file_result::handled;
}

std::string FileActions::recycle(const std::string& strFile) {
    const std::int32_t code = parts_.system.prcSendToBin(strFile, file_operation::allowUndo);
    raiseFileReport(parts_, "Auto Send File to Recycle Bin: " + strFile);
    noteFailedRecycling(parts_.host, parts_.platform, parts_.alerts, strFile, code);
    return file_result::handled;
}

void FileActions::report(const std::string& what, const std::string& strFile,
                         const std::string& strPath, double bytes) {
    raiseFileReport(parts_, what + strFile + " to " + strPath +
                                " Size: " + toText(bytes, parts_.platform.regional) + pieceEnd);
}

// What prcFileAct does, the walk over the list.

struct FileActions::Walk {
    std::int16_t& iAct;
    std::string& strDrv;
    std::string& strPath;
    std::string& strFile;
    std::string strTrigger;  // of the target row, which may go during a yield
    int handled = 0;
};

void FileActions::prcFileAct(std::int16_t& iAct, ListItem& itmTarget, std::int16_t& iMaxFiles,
                             std::string& strDrv, std::string& strPath, std::string& strFile) {
    if (iAct < 0) return;
    Form1& form1 = parts_.forms.form1;
    if (strPath.empty()) strPath = prcChkDriv(form1.txtDrive.Text());
    if (!strFile.empty()) return;
    Walk walk{.iAct = iAct,
              .strDrv = strDrv,
              .strPath = strPath,
              .strFile = strFile,
              .strTrigger = ConstWatchRow(itmTarget).trigger()};
    for (int n = form1.LVFile.Count(); n >= 1; --n) {
        parts_.host.DoEvents();
        const bool bStop = takeRow(walk, n);
        if (bStop || walk.handled >= iMaxFiles || n >= form1.LVFile.Count()) return;
    }
}

// Whether the walk is to stop.
bool FileActions::takeRow(Walk& walk, int place) {
    Form1& form1 = parts_.forms.form1;
    const ListedRow listed = listedRow(form1.LVFile, place);
    const std::string root = ConstListedFile(*listed.row).root();
    if (lowerCase(root) != lowerCase(walk.strDrv)) return false;
    // A missing file is skipped without a report.
    if (!parts_.platform.fso.FileExists(listed.path)) return false;
    walk.strFile = listed.path;
    if (walk.iAct < act::move || walk.iAct > act::autoMove) return false;

    const bool takesPath = walk.iAct == act::move || walk.iAct == act::autoMove;
    std::string strNoPath;
    const std::string result =
        prcFileActOption(walk.iAct, walk.strFile, takesPath ? walk.strPath : strNoPath);
    // Handlers may have run while the shell asked the user.
    removeListedRow(form1.LVFile, listed);
    ++walk.handled;
    if (result != file_result::handled) return true;
    return form1.chkSeq.ticked() || isSpaceEnough(walk);
}

// A folder reports no free space, so it never has enough.
bool FileActions::isSpaceEnough(const Walk& walk) {
    FileSystemObject& fso = parts_.platform.fso;
    if (!fso.DriveExists(walk.strDrv)) return false;
    const std::int32_t minimum = minimumOf(walk);
    return kilobytes(fso.GetDrive(walk.strDrv)->AvailableSpace()) >= minimum;
}

std::int32_t FileActions::minimumOf(const Walk& walk) {
    const Form1& form1 = parts_.forms.form1;
    const bool ofRow = !form1.OpDriv[0].Value() && !walk.strTrigger.empty();
    return toLong(ofRow ? walk.strTrigger : form1.txtSpace.Text(), parts_.platform.regional);
}

}  // namespace velmora
