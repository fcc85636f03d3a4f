// Event detection: compares a watched row with what the checks before saw of it, and reports the
// events that are ticked in lstEvt. There are no thresholds; texts and counts are equal or not.
//
// The free text that is compared is the one of two checks ago: prcSetPrevInfoLV keeps the old text
// and replaces it by the present one, so each check compares with what the last but one measured.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "alerts/dialog/alert_dialog_window.h"
#include "alerts/journal/alert_list.h"
#include "alerts/system/system_actions.h"
#include "base/time_text.h"
#include "forms/forms.h"
#include "inspect/wait_test.h"
#include "platform/platform.h"
#include "rows/watch_row.h"

namespace velmora {

/// What the event pass asks besides the forms.
struct EventParts {
    AlertList& alerts;
    WaitTest& waitTest;
    SystemActions& systemActions;
    AlertDialogWindow& alertDialog;
};

class EventPass {
  public:
    EventPass(Forms& forms, Platform& platform, EventParts parts)
        : forms_(forms), platform_(platform), parts_(parts) {}
    EventPass(const EventPass&) = delete;
    EventPass& operator=(const EventPass&) = delete;

    /// The event pass over a ready row, whose check has found that many bytes free. The row is
    /// named by its index since a handler that ran in between may have removed some. Every failure
    /// of a test goes to the caller, and what the row's tests have found so far is dropped; error
    /// 424 whenever the entry for a path that became unavailable is ticked. Returns whether there
    /// was any test to make.
    bool checkEvents(int row, double freeBytes);
    /// A watched row whose drive isn't ready.
    void rowNotReady(int row);
    /// Keeps the row's present figures for the next comparison and takes new ones: the free space
    /// that the check has found, or what the drive answers now. 1 when the row has new figures. 0
    /// without a change for a row that isn't available, and on any failure, with what was written
    /// till then; a row that is no drive root and no share is marked as not available.
    int prcSetPrevInfoLV(ListItem& ItmX, double freeBytes);
    int prcSetPrevInfoLV(ListItem& ItmX);
    /// The report of the files in a folder that are newer than the last call of this; empty for
    /// none.
    std::string prcChkFileTimes(const std::string& sPath);

  private:
    struct Pass;
    bool runTests(Pass& pass);
    void test(int event, Pass& pass);
    void testFreeSpace(int event, Pass& pass);
    void testQuantity(Pass& pass);
    void testModification(const Pass& pass);
    void report(const Pass& pass);
    std::unique_ptr<Folder> folderOf(const std::string& path);
    int setPrevInfo(ListItem& item, std::optional<double> freeBytes);
    void takeFigures(WatchRow& row, std::optional<double> freeBytes);

    Forms& forms_;
    Platform& platform_;
    EventParts parts_;
    TimeText stamp_;
};

}  // namespace velmora
