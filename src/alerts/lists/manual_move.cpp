// Moving the specified files by hand.
#include "alerts/lists/listed_rows.h"
#include "alerts/lists/manual_operations.h"
#include "alerts/system/question_in_front.h"
#include "base/drive_text.h"

namespace velmora {

void ManualOperations::cmdMoveAll_Click() {
    if (list_.Count() == 0) return say("No item listed.");
    try {
        for (int i = 1; i <= list_.Count(); ++i) list_.ListItems(i).setSelected(false);
        // Rows may be removed while a box is open: each of the others is still handled, once.
        for (const Subject& subject : rowsFromLast(list_)) {
            const int place = placeOf(subject);
            if (place == 0) continue;
            selectOnly(place);
            moveSelected(place);
        }
    } catch (const std::exception&) {
        say("Unable to move all.  A file may be invalid.");
    }
}

// Only the row below can be selected: the one handled before this one, if it stayed.
void ManualOperations::selectOnly(int index) {
    if (index < list_.Count()) list_.ListItems(index + 1).setSelected(false);
    list_.ListItems(index).setSelected(true);
}

void ManualOperations::moveSelected(int expected) {
    if (list_.Count() == 0) return say("No file listed.");
    const auto destination = askDestination();
    if (!destination) return;
    const auto subject = subjectAt(selectedRow(list_, expected));
    if (!subject || subject->path.empty()) return say("no file listed.");
    const std::string& tag = subject->path;
    if (!parts_.platform.fso.FileExists(tag)) return;

    const std::string newName = *destination + parts_.platform.fso.GetFileName(tag);
    const bool moved = parts_.platform.kernel32.MoveFileA(tag, newName) == 1;
    if (!moved) {
        say("File was moved unsuccessfully, check for sufficient resources (disk space) and try "
            "again.");
    }
    report((moved ? "- Moved File: " : "- Failed Moved File: ") + tag);
    removeRow(*subject);
}

// The folder in front of which the file's name is put as it is; nothing when the user cancels.
std::optional<std::string> ManualOperations::askDestination() {
    const std::string specified = withoutLineEnds(parts_.form1.txtDrive.Text());
    const BoxAnswer answer =
        askInFront(parts_.stayOnTop, parts_.host,
                   {.text = "Move Selected File(s) to Specified Path: " + specified +
                            " ? click no to select another path",
                    .icon = BoxIcon::question,
                    .buttons = BoxButtons::yesNo});
    if (answer == BoxAnswer::yes) return specified;
    std::string folder = parts_.host.BrowseForFolder("Select Folder/Path");
    if (folder.empty()) return std::nullopt;
    return parts_.platform.fso.FolderExists(folder) ? folder : std::string{};
}

}  // namespace velmora
