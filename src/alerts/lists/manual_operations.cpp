#include "alerts/lists/manual_operations.h"

#include <algorithm>

#include "alerts/journal/alert_time.h"
#include "base/resume_next.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

ManualOperations::ManualOperations(ManualParts parts)
    : forms_(parts.forms),
      form1_(parts.forms.form1),
      list_(parts.forms.form1.LVFile),
      platform_(parts.platform),
      host_(parts.host),
      alerts_(parts.alerts),
      systemActions_(parts.systemActions),
      alertDialog_(parts.alertDialog),
      stayOnTop_(parts.stayOnTop) {
    form1_.cmdFolder.Click.connect([this] { cmdFolder_Click(); });
    form1_.cmdMove.Click.connect([this] { cmdMove_Click(); });
    form1_.cmdMoveAll.Click.connect([this] { cmdMoveAll_Click(); });
    form1_.cmdDelete.Click.connect([this] { cmdDelete_Click(); });
    form1_.cmdDeleteAll.Click.connect([this] { cmdDeleteAll_Click(); });
}

void ManualOperations::cmdFolder_Click() {
    const std::string chosen =
        host_.OpenFileDialog({.DialogTitle = "Select Path by choosing a file within the folder",
                              .Filter = "All Files (*.*)|*.*"});
    // Dismissing the dialog leaves the path.
    if (!chosen.empty()) form1_.txtDrive.setText(left(chosen, lastPosition(chosen, "\\")));
}

std::optional<ListedRow> ManualOperations::subjectAt(int index) {
    if (index < 1 || index > list_.Count()) return std::nullopt;
    return listedRow(list_, index);
}

void ManualOperations::say(const std::string& text) {
    host_.MsgBox({.text = text});
}

void ManualOperations::sayFailure(const RuntimeError& failure, const std::string& tag) {
    host_.MsgBox(
        {.text = failure.description() + "\r\nFile: " + tag + "\r\n", .icon = BoxIcon::critical});
}

// The row stands in the list even when the log file can't take it.
void ManualOperations::raise(const char* rating, const std::string& text) {
    resumeNext([&] {
        alerts_.prcAlertInfo(Format(platform_.clock.Now(), alert_time::minutes), rating, text, {},
                             nullptr);
    });
}

// What the dialog already shows isn't reported again. Stamp and line end belong to it: another path
// may begin with this one, and the same path may come back later.
void ManualOperations::report(const std::string& text) {
    TextBox& dialogText = forms_.dlgAlert.Label1;
    const std::string end(lineEnd);
    const std::string line = alert_time::dateAndTime(platform_.clock.Now()) + text + end;
    if (dialogText.contains(line)) return;
    raise(rating::medium, text);
    const std::string entry = line + " . " + end;
    form1_.txtAlert.prepend(entry);
    dialogText.prepend(entry);
    alertDialog_.show();
}

}  // namespace velmora
