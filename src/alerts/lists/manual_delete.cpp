// Deleting the specified files by hand.
#include "alerts/journal/failed_recycling.h"
#include "alerts/lists/file_list.h"
#include "alerts/lists/listed_folder.h"
#include "alerts/lists/listed_rows.h"
#include "alerts/lists/manual_operations.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "rows/size_text.h"

namespace velmora {

namespace {

constexpr const char* whyAllEnds =
    "\"Delete All\" ends at a file that is missing: the box of files (cboFile) is empty, so "
    "that no entry can be removed with the row. Remove the row, then start again.";

bool isAccessError(const RuntimeError& failure) {
    return failure.number() == error::permissionDenied || failure.number() == error::pathFileAccess;
}

}  // namespace

void ManualOperations::cmdDelete_Click() {
    if (list_.Count() == 0) return say("No item listed.");
    const auto subject = subjectAt(selectedRow(list_));
    if (!subject) return say("No file selected.");
    std::string text;
    try {
        text = remove(subject->path);
    } catch (const RuntimeError& failure) {
        // The row stays: it isn't known whether the file still exists.
        if (!isAccessError(failure)) return sayFailure(failure, subject->path);
        text = "- File access error (Listing Removed): " + subject->path;
    }
    removeRow(*subject);
    report(text);
    // A check at once shows the new free space.
    parts_.form1.Timer1.Tick();
}

// Deletes what the path names and returns the report of it.
std::string ManualOperations::remove(const std::string& tag) {
    if (parts_.platform.fso.FileExists(tag)) {
        parts_.platform.files.remove(tag);
        return "- Deleted File: " + tag;
    }
    if (parts_.platform.fso.FolderExists(tag)) {
        const auto folder = folderToDelete(parts_.platform.fso, tag);
        if (const auto bytes = contentToDelete(*folder)) {
            folder->Delete(true);
            return pieceEnd + ("- Deleted Folder: " + tag) + " | [" +
                   folderSizeText(*bytes, parts_.platform.regional) + "]";
        }
    }
    return "- No Folder Found or No Content in Folder: " + tag;
}

void ManualOperations::cmdDeleteAll_Click() {
    if (list_.Count() == 0) return say("No item listed.");
    const BoxAnswer answer = parts_.host.MsgBox(
        {.text = "Do you want to delete files or put in recycle bin? Yes = Recycle Bin, No = "
                 "Permanent Deletion",
         .icon = BoxIcon::question,
         .buttons = BoxButtons::yesNoCancel,
         .title = "RecycleBin"});
    if (answer != BoxAnswer::yes && answer != BoxAnswer::no) return;
    for (Subject& subject : rowsFromLast(list_)) {
        // Rows may be removed while a box is open. What is no longer listed is not deleted.
        subject.index = placeOf(subject);
        if (subject.index > 0 && !deleteListed(subject, answer == BoxAnswer::yes)) return;
    }
}

// Whether the run goes on.
bool ManualOperations::deleteListed(const ListedRow& subject, bool toBin) {
    const std::string& tag = subject.path;
    try {
        if (!parts_.platform.fso.FileExists(tag)) return dropMissing(subject);
        if (toBin) {
            const std::int32_t code =
                parts_.systemActions.prcSendToBin(tag, file_operation::allowUndo);
            raise(rating::medium, "- Sended File to Recycle Bin: " + tag);
            noteFailedRecycling(parts_.host, parts_.platform, parts_.alerts, tag, code);
        } else {
            parts_.platform.files.remove(tag);
            raise(rating::medium, "- Deleted File: " + tag);
        }
        removeRow(subject);
        return true;
    } catch (const RuntimeError& failure) {
        return goOnAfter(failure, tag);
    }
}

// Also removes the first entry of the combo box, whichever it is. An empty combo box ends the run,
// after its message, with the row in place; the reason is beside the message, which doesn't say it.
bool ManualOperations::dropMissing(const ListedRow& subject) {
    ComboBox& box = parts_.form1.cboFile;
    const bool isLast = box.ListCount() == 0;
    const std::string reason = isLast ? whyAllEnds : "";
    parts_.host.MsgBox({.text = "file does not exits: " + subject.path, .detail = reason});
    if (isLast) parts_.hints.say({.field = "cboFile", .text = reason, .about = HintAbout::working});
    if (box.ListCount() == 0) return false;
    box.RemoveItem(0);
    removeRow(subject);
    return true;
}

bool ManualOperations::goOnAfter(const RuntimeError& failure, const std::string& tag) {
    if (!contains(failure.description(), "Permission denied")) {
        sayFailure(failure, tag);
        return false;
    }
    const std::string text =
        "An error was raised when deleting was attempted: Permission denied\r\nFile: " + tag +
        "\r\n";
    raise(rating::high, text);
    return parts_.host.MsgBox({.text = text + "Do you want to skip this file and continue?",
                               .icon = BoxIcon::question,
                               .buttons = BoxButtons::yesNo}) == BoxAnswer::yes;
}

}  // namespace velmora
