// Moving the specified files by hand.
#include <cstddef>
#include <optional>
#include <string>

#include "alerts/lists/listed_rows.h"
#include "alerts/lists/manual_operations.h"
#include "alerts/system/question_in_front.h"
#include "base/drive_text.h"
#include "platform/file_system_object.h"

namespace velmora {

// What the user wants for the rows that are still to come.
struct ManualOperations::MoveRun {
    std::size_t left = 0;        // rows that follow
    bool keepsAnswer = false;    // `destination` is for all of them
    bool keepsFailures = false;  // no further box tells that a move has failed
    std::optional<std::string> destination = {};

    std::string others() const {
        return left == 1 ? "the other file" : "the other " + std::to_string(left) + " files";
    }
};

void ManualOperations::cmdMove_Click() {
    MoveRun single;
    moveSelected(1, single);
}

void ManualOperations::cmdMoveAll_Click() {
    if (list_.Count() == 0) return say("No item listed.");
    try {
        for (int i = 1; i <= list_.Count(); ++i) list_.ListItems(i).setSelected(false);
        // Rows may be removed while a box is open: each of the others is still handled, once.
        const auto subjects = rowsFromLast(list_);
        MoveRun run{.left = subjects.size()};
        for (const Subject& subject : subjects) {
            --run.left;
            const int place = placeOf(subject);
            if (place == 0) continue;
            selectOnly(place);
            moveSelected(place, run);
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

void ManualOperations::moveSelected(int expected, MoveRun& run) {
    if (list_.Count() == 0) return say("No file listed.");
    const auto destination = askDestination(expected, run);
    if (!destination) return;
    const auto subject = subjectAt(selectedRow(list_, expected));
    if (!subject || subject->path.empty()) return say("no file listed.");
    if (parts_.platform.fso.FileExists(subject->path)) moveFile(*subject, *destination, run);
}

void ManualOperations::moveFile(const Subject& subject, const std::string& destination,
                                MoveRun& run) {
    const std::string& tag = subject.path;
    const std::string newName = newPath(destination, tag);
    const bool moved = [&] {
        const Busy busy(parts_.host);
        return parts_.platform.kernel32.MoveFileA(tag, newName) == 1;
    }();
    if (!moved && !run.keepsFailures) {
        run.keepsFailures =
            askAbout({.text = "File was moved unsuccessfully, check for sufficient resources (disk "
                              "space) and try again."},
                     run, "Don't show this again for " + run.others())
                .isForTheRest;
    }
    report((moved ? "- Moved File: " : "- Failed Moved File: ") + tag);
    removeRow(subject);
}

// The last of a series has nothing to offer.
SeriesAnswer ManualOperations::askAbout(const Box& box, const MoveRun& run,
                                        const std::string& offer) {
    if (run.left == 0) return {.answer = parts_.host.MsgBox(box)};
    return parts_.host.MsgBoxOfSeries(box, offer);
}

// The place that Yes means. A path without a back-slash at its end becomes a part of the name,
// which the question doesn't show.
std::string ManualOperations::whereTo(const std::string& destination, int expected) {
    const auto subject = subjectAt(selectedRow(list_, expected));
    if (!subject || subject->path.empty()) return {};
    const std::string place = newPath(destination, subject->path);
    if (!beginsAtRoot(place)) return "Yes moves nothing: the specified path names no folder.";
    return "Yes moves it to: " + place;
}

// The name is put straight behind what was typed or chosen. Links in it lead to where it lies.
std::string ManualOperations::newPath(const std::string& destination, const std::string& tag) {
    FileSystemObject& fso = parts_.platform.fso;
    return fso.WithoutLinks(destination + fso.GetFileName(tag));
}

// The folder in front of which the file's name is put as it is; nothing when the user cancels.
std::optional<std::string> ManualOperations::askDestination(int expected, MoveRun& run) {
    if (run.keepsAnswer) return run.destination;
    const std::string specified = withoutLineEnds(parts_.form1.txtDrive.Text());
    const Box question{.text = "Move Selected File(s) to Specified Path: " + specified +
                               " ? click no to select another path",
                       .icon = BoxIcon::question,
                       .buttons = BoxButtons::yesNo,
                       .detail = whereTo(specified, expected)};
    const SeriesAnswer given = askInFront(parts_.stayOnTop, [&] {
        return askAbout(question, run, "Do the same with " + run.others());
    });
    run.destination = destinationOf(given.answer, specified);
    run.keepsAnswer = given.isForTheRest;
    return run.destination;
}

std::optional<std::string> ManualOperations::destinationOf(BoxAnswer answer,
                                                           const std::string& specified) {
    if (answer == BoxAnswer::yes) return specified;
    std::string folder = parts_.host.BrowseForFolder("Select Folder/Path");
    if (folder.empty()) return std::nullopt;
    return parts_.platform.fso.FolderExists(folder) ? folder : std::string{};
}

}  // namespace velmora
