// The activity log: the journal in txtAlert and the file beside the program that keeps it, with the
// buttons of both. The file is plain text; a block of it is a part of the journal, newest entry
// first.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/journal/log_file.h"
#include "alerts/ports.h"
#include "forms/form1.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class JournalLog {
  public:
    /// Connects the buttons of the log page, and marks the journal as saved up to a length of 0, so
    /// that the first check saves already. The mark, in decimal, is the tag of txtAlert.
    JournalLog(Form1& form1, Platform& platform, LogFile& log, Host& host, StayOnTop& stayOnTop);
    JournalLog(const JournalLog&) = delete;
    JournalLog& operator=(const JournalLog&) = delete;

    /// While chkAutoSave is ticked: appends the characters by which the journal is longer than the
    /// mark, and moves the mark. Only the length counts: a journal that was cleared isn't saved
    /// until it is longer than the mark. Error 13 for a mark that is no number; on an error of the
    /// file the mark stays, so that nothing is lost. The cost depends on the new text alone. What
    /// was passed over before comes first.
    void saveNewEntries();
    /// While chkAutoSave is ticked: appends the whole journal, and leaves the mark. Errors of the
    /// file go to the caller; a program that keeps running passes over them, and saveNewEntries
    /// appends the journal later.
    void prcSaveLog();
    /// Writes a script that notes `strMessage` in the system's event log, and starts it. Each
    /// single quote becomes a double one, also in the message, which must contain its own quotes.
    /// "1" when the system's answer is 42, else "0". Errors of the file go to the caller.
    std::string prcSetEvt(std::int16_t iEvent, const std::string& strMessage);

  private:
    void Save_Click();
    void OpenLog_Click();
    void Clear_Click();
    void DeleteLog_Click();
    bool isAgreed(const std::string& question);

    Form1& form1_;
    Platform& platform_;
    LogFile& log_;
    Host& host_;
    StayOnTop& stayOnTop_;
    bool isJournalOwed_ = false;  // prcSaveLog was passed over
};

}  // namespace velmora
