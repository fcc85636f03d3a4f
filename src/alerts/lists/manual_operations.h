// Moving and deleting the specified files by hand.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "alerts/dialog/alert_dialog_window.h"
#include "alerts/journal/alert_list.h"
#include "alerts/lists/listed_rows.h"
#include "alerts/ports.h"
#include "alerts/system/system_actions.h"
#include "base/runtime_error.h"
#include "forms/dialogs.h"
#include "forms/form1.h"
#include "forms/hints.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// What the operations are done with.
struct ManualParts {
    Form1& form1;
    DlgAlert& dlgAlert;
    Platform& platform;
    Host& host;
    AlertList& alerts;
    SystemActions& systemActions;
    AlertDialogWindow& alertDialog;
    StayOnTop& stayOnTop;
    Hints& hints;
};

/// An operation on a file reports by alert list, journal and alert dialog, and goes on when the log
/// file can't be written: the file has changed already, so its row must not stay.
class ManualOperations {
  public:
    /// Connects its handlers to the forms, which must outlive it like the rest.
    explicit ManualOperations(ManualParts parts);
    ManualOperations(const ManualOperations&) = delete;
    ManualOperations& operator=(const ManualOperations&) = delete;

    /// Sets the specified path to the folder of a file that is chosen.
    void cmdFolder_Click();
    /// Asks where to, moves the file of the selected row and removes the row, moved or not.
    void cmdMove_Click();
    /// The same for each row from the last to the first. Where the host offers it, one answer is
    /// taken for all rows that follow.
    void cmdMoveAll_Click();
    /// Deletes the file or folder of the selected row at once, removes the row and runs one tick of
    /// the check.
    void cmdDelete_Click();
    /// Asks how, then deletes the files of all rows from the last to the first or sends them to the
    /// recycle bin.
    void cmdDeleteAll_Click();

  private:
    /// A row that is worked on. The check may remove rows while a box is open.
    using Subject = ListedRow;
    std::optional<Subject> subjectAt(int index);
    int placeOf(const Subject& subject) const { return placeOfRow(list_, subject); }
    void removeRow(const Subject& subject) { removeListedRow(list_, subject); }

    struct MoveRun;
    void moveSelected(int expected, MoveRun& run);
    void moveFile(const Subject& subject, const std::string& destination, MoveRun& run);
    std::optional<std::string> askDestination(int expected, MoveRun& run);
    std::optional<std::string> destinationOf(BoxAnswer answer, const std::string& specified);
    std::string whereTo(const std::string& destination, int expected);
    std::string newPath(const std::string& destination, const std::string& tag);
    SeriesAnswer askAbout(const Box& box, const MoveRun& run, const std::string& offer);
    void selectOnly(int index);

    std::string remove(const std::string& tag);
    bool deleteListed(const ListedRow& subject, bool toBin);
    bool dropMissing(const ListedRow& subject);
    bool goOnAfter(const RuntimeError& failure, const std::string& tag);

    void say(const std::string& text);
    void sayFailure(const RuntimeError& failure, const std::string& tag);
    void raise(const char* rating, const std::string& text);
    void report(const std::string& text);

    ManualParts parts_;
    ListView& list_;  // of the specified files
};

}  // namespace velmora
