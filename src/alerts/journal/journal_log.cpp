#include "alerts/journal/journal_log.h"

#include <algorithm>
#include <cstddef>

#include "alerts/system/question_in_front.h"
#include "base/convert.h"
#include "base/text.h"
#include "platform/show_window.h"

namespace velmora {

namespace {

// What the shell answers when it has taken an order.
constexpr std::int32_t orderTaken = 42;

namespace button {
constexpr std::size_t save = 0;
constexpr std::size_t openLog = 1;
constexpr std::size_t clear = 2;
constexpr std::size_t deleteLog = 3;
}  // namespace button

}  // namespace

JournalLog::JournalLog(Forms& forms, Platform& platform, Host& host, StayOnTop& stayOnTop)
    : forms_(forms), platform_(platform), host_(host), stayOnTop_(stayOnTop) {
    Form1& form1 = forms_.form1;
    form1.txtAlert.setTag("0");
    form1.lblAl[button::save].Click.connect([this] { Save_Click(); });
    form1.lblAl[button::openLog].Click.connect([this] { OpenLog_Click(); });
    form1.lblAl[button::clear].Click.connect([this] { Clear_Click(); });
    form1.lblAl[button::deleteLog].Click.connect([this] { DeleteLog_Click(); });
}

void JournalLog::saveNewEntries() {
    Form1& form1 = forms_.form1;
    if (!form1.chkAutoSave.ticked()) return;
    TextBox& journal = form1.txtAlert;
    const double saved = toDouble(journal.Tag(), platform_.regional);
    const std::size_t total = journal.textLength();
    if (saved >= static_cast<double>(total)) return;
    const double added = static_cast<double>(total) - std::max(saved, 0.0);
    platform_.files.appendLine(form1.lblLog.Caption(),
                               journal.front(static_cast<std::size_t>(added)));
    journal.setTag(toText(static_cast<std::int64_t>(total)));
}

void JournalLog::prcSaveLog() {
    const Form1& form1 = forms_.form1;
    if (!form1.chkAutoSave.ticked()) return;
    platform_.files.appendLine(platform_.app.Path + "\\log.dat", form1.txtAlert.Text());
}

std::string JournalLog::prcSetEvt(std::int16_t iEvent, const std::string& strMessage) {
    const std::string path = platform_.app.Path + "\\tmpLogNTEvt.vbs";
    std::string script = "Const EVENT_SUCCESS = " + toText(std::int64_t{iEvent});
    script += lineEnd;
    script += "Set objShell = Wscript.CreateObject('Wscript.Shell')";
    script += lineEnd;
    script += "objShell.LogEvent EVENT_SUCCESS, " + strMessage;
    script += lineEnd;
    platform_.files.writeOver(path, replaceAll(script, "'", "\""));
    const std::int32_t answer =
        platform_.shell32.ShellExecuteA(forms_.form1.Name(), "open", path, "0", "", normalWindow);
    return answer == orderTaken ? "1" : "0";
}

// The mark stays: the next save at the end of a check can write the same entries once more.
void JournalLog::Save_Click() {
    if (!isAgreed("Save the current Log content?")) return;
    const Form1& form1 = forms_.form1;
    platform_.files.appendLine(form1.lblLog.Caption(), form1.txtAlert.Text());
}

void JournalLog::OpenLog_Click() {
    platform_.shell32.Shell("Notepad.exe " + forms_.form1.lblLog.Caption(), normalWindow);
}

// Neither the counters nor the mark: what was raised was raised, and saving goes by length.
void JournalLog::Clear_Click() {
    forms_.form1.txtAlert.setText("");
    forms_.form1.LVAlert.Clear();
}

void JournalLog::DeleteLog_Click() {
    if (!isAgreed("Proceeding will delete the log file.  Are you sure?")) return;
    platform_.files.remove(forms_.form1.lblLog.Caption());
}

bool JournalLog::isAgreed(const std::string& question) {
    return askInFront(
               stayOnTop_, host_,
               {.text = question, .icon = BoxIcon::question, .buttons = BoxButtons::yesNo}) ==
           BoxAnswer::yes;
}

}  // namespace velmora
