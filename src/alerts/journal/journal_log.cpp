#include "alerts/journal/journal_log.h"

#include <algorithm>
#include <cstddef>

#include "alerts/system/question_in_front.h"
#include "base/convert.h"
#include "base/runtime_error.h"
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

JournalLog::JournalLog(Form1& form1, Platform& platform, LogFile& log, Host& host,
                       StayOnTop& stayOnTop)
    : form1_(form1), platform_(platform), log_(log), host_(host), stayOnTop_(stayOnTop) {
    form1_.txtAlert.setTag("0");
    form1_.lblAl[button::save].Click.connect([this] { Save_Click(); });
    form1_.lblAl[button::openLog].Click.connect([this] { OpenLog_Click(); });
    form1_.lblAl[button::clear].Click.connect([this] { Clear_Click(); });
    form1_.lblAl[button::deleteLog].Click.connect([this] { DeleteLog_Click(); });
}

void JournalLog::saveNewEntries() {
    if (!form1_.chkAutoSave.ticked()) return;
    if (!log_.writeWaiting()) return;
    if (isJournalOwed_) prcSaveLog();
    TextBox& journal = form1_.txtAlert;
    const double saved = toDouble(journal.Tag(), platform_.regional);
    const std::size_t total = journal.textLength();
    if (saved >= static_cast<double>(total)) return;
    const double added = static_cast<double>(total) - std::max(saved, 0.0);
    if (!log_.appendBlock(form1_.lblLog.Caption(), journal.front(static_cast<std::size_t>(added))))
        return;
    journal.setTag(toText(static_cast<std::int64_t>(total)));
}

void JournalLog::prcSaveLog() {
    if (!form1_.chkAutoSave.ticked()) return;
    isJournalOwed_ =
        !log_.appendBlock(platform_.app.DataPath + "\\log.dat", form1_.txtAlert.Text());
}

std::string JournalLog::prcSetEvt(std::int16_t iEvent, const std::string& strMessage) {
    const std::string path = platform_.app.DataPath + "\\tmpLogNTEvt.vbs";
    std::string script = "Const EVENT_SUCCESS = " + toText(std::int64_t{iEvent});
    script += lineEnd;
    script += "Set objShell = Wscript.CreateObject('Wscript.Shell')";
    script += lineEnd;
    script += "objShell.LogEvent EVENT_SUCCESS, " + strMessage;
    script += lineEnd;
    attempt("write the script for the system's event log", path,
            [&] { platform_.files.writeOver(path, replaceAll(script, "'", "\"")); });
    const std::int32_t answer =
        platform_.shell32.ShellExecuteA(form1_.Name(), "open", path, "0", "", normalWindow);
    return answer == orderTaken ? "1" : "0";
}

// The mark stays: the next save at the end of a check can write the same entries once more.
void JournalLog::Save_Click() {
    if (!isAgreed("Save the current Log content?")) return;
    const std::string& path = form1_.lblLog.Caption();
    attempt("save the journal", path,
            [&] { platform_.files.appendLine(path, form1_.txtAlert.Text()); });
}

void JournalLog::OpenLog_Click() {
    const std::string& path = form1_.lblLog.Caption();
    attempt("open the log file", path,
            [&] { platform_.shell32.Shell("Notepad.exe " + path, normalWindow); });
}

// The counters and the mark stay: they count all alerts raised and the length saved so far.
void JournalLog::Clear_Click() {
    form1_.txtAlert.setText("");
    form1_.LVAlert.Clear();
}

void JournalLog::DeleteLog_Click() {
    if (!isAgreed("Proceeding will delete the log file.  Are you sure?")) return;
    const std::string& path = form1_.lblLog.Caption();
    attempt("delete the log file", path, [&] { platform_.files.remove(path); });
    log_.forgetWaiting();
    isJournalOwed_ = false;
}

bool JournalLog::isAgreed(const std::string& question) {
    return askInFront(
               stayOnTop_, host_,
               {.text = question, .icon = BoxIcon::question, .buttons = BoxButtons::yesNo}) ==
           BoxAnswer::yes;
}

}  // namespace velmora
