#include "alerts/lists/manual_operations.h"

#include <algorithm>

#include "alerts/journal/alert_time.h"
#include "alerts/lists/specified_path.h"
#include "base/resume_next.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

ManualOperations::ManualOperations(ManualParts parts) : parts_(parts), list_(parts.form1.LVFile) {
    Form1& form1 = parts_.form1;
    form1.cmdFolder.Click.connect([this] { cmdFolder_Click(); });
    form1.cmdMove.Click.connect([this] { cmdMove_Click(); });
    form1.cmdMoveAll.Click.connect([this] { cmdMoveAll_Click(); });
    form1.cmdDelete.Click.connect([this] { cmdDelete_Click(); });
    form1.cmdDeleteAll.Click.connect([this] { cmdDeleteAll_Click(); });
}

void ManualOperations::cmdFolder_Click() {
    chooseSpecifiedPath(parts_.form1.txtDrive, parts_.host);
}

std::optional<ListedRow> ManualOperations::subjectAt(int index) {
    if (index < 1 || index > list_.Count()) return std::nullopt;
    return listedRow(list_, index);
}

void ManualOperations::say(const std::string& text) {
    parts_.host.MsgBox({.text = text});
}

void ManualOperations::sayFailure(const RuntimeError& failure, const std::string& tag) {
    parts_.host.MsgBox(
        {.text = failure.description() + "\r\nFile: " + tag + "\r\n", .icon = BoxIcon::critical});
}

// The row is in the list even when the log file can't be written.
void ManualOperations::raise(const char* rating, const std::string& text) {
    resumeNext([&] {
        parts_.alerts.prcAlertInfo(Format(parts_.platform.clock.Now(), alert_time::minutes), rating,
                                   text, {}, nullptr);
    });
}

// What the dialog already shows isn't reported again. Stamp and line end belong to it: another path
// may begin with this one, and the same path may come back later.
void ManualOperations::report(const std::string& text) {
    TextBox& dialogText = parts_.dlgAlert.Label1;
    const std::string end(lineEnd);
    const std::string line = alert_time::dateAndTime(parts_.platform.clock.Now()) + text + end;
    if (dialogText.contains(line)) return;
    raise(rating::medium, text);
    const std::string entry = line + " . " + end;
    parts_.form1.txtAlert.prepend(entry);
    dialogText.prepend(entry);
    parts_.alertDialog.show();
}

}  // namespace velmora
