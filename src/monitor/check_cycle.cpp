#include "monitor/check_cycle.h"

#include <string>
#include <utility>

#include "alerts/journal/alert_time.h"
#include "base/convert.h"
#include "base/drive_text.h"
#include "base/resume_next.h"
#include "base/scope_guard.h"
#include "base/text.h"
#include "forms/form_numbers.h"
#include "forms/start_pause.h"
#include "monitor/watch_times.h"
#include "rows/watch_row.h"

namespace velmora {

namespace {

// Milliseconds of Timer1 once checks have begun.
constexpr int runningInterval = 10000;

// The tick ends after more errors than this.
constexpr int errorLimit = 2;

}  // namespace

CheckCycle::CheckCycle(Forms& forms, Clock& clock, const Regional& regional, Host& host,
                       CheckParts parts)
    : forms_(forms), clock_(clock), regional_(regional), host_(host), parts_(parts) {
    forms_.form1.Timer1.Tick.connect([this] { Timer1_Timer(); });
    forms_.icon0.cmdCancel.Click.connect([this] { forms_.globals.bChecking = false; });
}

void CheckCycle::Timer1_Timer() {
    forms_.form1.Timer1.setEnabled(false);
    std::int16_t intErrCount = 0;
    for (bool again = true; again;) {
        try {
            tick(intErrCount);
            again = false;
        } catch (const std::exception&) {
            again = retryAfter(currentRuntimeError(), intErrCount);
        }
    }
}

void CheckCycle::tick(std::int16_t intErrCount) {
    if (intErrCount > errorLimit) {
        reportErrorLimit();
        closeTick();
        return;
    }
    if (forms_.form1.chkOnTopMonitor.ticked() && !forms_.form1.Visible()) forms_.form1.Show();
    if (!isDue()) {
        closeTick();
        return;
    }
    const std::int32_t lngMinSpace = prepare();
    closeCheck(walkRows(lngMinSpace));
}

// Counts down and shows the remaining time; true when the interval has passed.
bool CheckCycle::isDue() {
    Form1& form1 = forms_.form1;
    form1.txtTime.setText(toText(secondsOf(form1.DTPInterval)));
    std::int32_t rest = toLong(toDouble(form1.txtTime.Text(), regional_) * 1000 - lngElapsedMs_);
    if (rest <= 0) {
        lngElapsedMs_ = 0;
        return true;
    }
    lngElapsedMs_ = addLong(lngElapsedMs_, form1.Timer1.Interval());
    // The last second is shown in milliseconds after the same words.
    if (rest > 1000) rest = toLong(rest / 1000.0);
    form1.StatusBar1.setPanelText(1, "Ready. Check in: " + toText(rest) + " (sec.)");
    return false;
}

// Returns the trigger that holds for all rows.
std::int32_t CheckCycle::prepare() {
    Form1& form1 = forms_.form1;
    start_pause::offerPause(form1.Toolbar1);
    form1.StatusBar1.setPanelText(1, "Checking...");
    form1.StatusBar1.setPanelPicture(1, image::checking);
    form1.Timer1.setEnabled(false);
    setDefaults();
    const std::int32_t lngMinSpace = toLong(form1.txtSpace.Text(), regional_);
    forms_.globals.bChecking = true;
    return lngMinSpace;
}

void CheckCycle::setDefaults() {
    Form1& form1 = forms_.form1;
    // An empty path comes back from the settings as the end of its line.
    if (withoutLineEnds(form1.txtDrive.Text()).empty()) form1.txtDrive.setText("c:\\");
    if (!isNumeric(form1.txtSpace.Text(), regional_)) form1.txtSpace.setText("50000");
    const auto interval = readNumber(form1.txtTime.Text(), regional_);
    if (!interval) {
        form1.txtTime.setText("5");
    } else if (*interval >= 69) {
        // Shown until the next tick writes the interval again.
        form1.txtTime.setText("65");
    }
}

// Walks the rows that are there at the start; returns the index at which the pass ended.
int CheckCycle::walkRows(std::int32_t lngMinSpace) {
    Form1& form1 = forms_.form1;
    ListView& list = form1.ListView1;
    const int count = list.Count();
    parts_.rowCheck.forgetReadings();
    std::string text = std::exchange(rowText_, {});
    const ScopeGuard keepRoom([this, &text] { rowText_ = std::move(text); });
    int i = 1;
    for (; i <= count; ++i) {
        if (host_.DoEventsRan()) parts_.rowCheck.forgetReadings();
        text = ConstWatchRow(list.ListItems(i)).path();
        form1.StatusBar1.setPanelText(2, "Checking: ", text);
        if (!forms_.globals.bChecking) {
            form1.StatusBar1.setPanelText(2, "Ready (e1): ");
            break;
        }
        showProgress(text);
        forms_.globals.bChecking = true;
        list.setEnabled(false);
        if (i == list.Count()) list.setEnabled(true);
        if (i > list.Count()) break;

        WatchRow row(list.ListItems(i));
        if (!row.watched()) {
            parts_.rowIcons.prcRefreshRowIcon(row.item());
            form1.StatusBar1.setPanelText(1, "No Alert:");
            row.setStateIcon(state_icon::none);
        } else if (parts_.rowCheck.check(i, lngMinSpace) == RowOutcome::overHundredPercent) {
            return i;
        }
    }
    parts_.statistics.updateSpaceChangeRate();
    parts_.statistics.prcUpdateStatistics();
    return i;
}

void CheckCycle::showProgress(const std::string& text) {
    Icon0& progress = forms_.icon0;
    if (forms_.form1.lstAct.Selected(act::progressDialog) && !progress.Visible()) {
        progress.fraProgress.setVisible(true);
        progress.lblProgress.setCaption("Program is checking: " + text);
        progress.Show();
    } else {
        progress.fraProgress.setVisible(false);
    }
}

void CheckCycle::closeCheck(int i) {
    Form1& form1 = forms_.form1;
    parts_.history.recordRows(i - 1);
    if (!isNumeric(form1.txtTime.Text(), regional_)) form1.txtTime.setText("5");
    form1.Timer1.setInterval(runningInterval);
    if (form1.cmdPause.Caption() == watch_caption::start)
        form1.cmdPause.setCaption(watch_caption::pause);
    forms_.globals.lngTimesChecked = addLong(forms_.globals.lngTimesChecked, 1);

    StatusBar& status = form1.StatusBar1;
    status.setPanelText(1, "Ready. Check in ", form1.txtTime.Text() + " (sec.)");
    status.setPanelText(2, "Checked: ", timeChecked_.of(clock_.Now(), [](const DateTime& now) {
        return Format(now, "hh:mm:ss mm/dd");
    }));
    status.setPanelText(3, "Times Checked: ", toText(forms_.globals.lngTimesChecked));
    status.setPanelPicture(1, image::ready);
    Checked();
    if (form1.chkLogTimeMon.ticked()) {
        // After a full pass `i` is one past the last row: this fails then and ends the tick.
        parts_.alerts.prcAlertInfo(Format(clock_.Now(), alert_time::seconds), rating::medium,
                                   status.Panels(2).Text, {}, &form1.ListView1.ListItems(i));
    }
    saveAtClosing();
    parts_.statistics.prcSrvAnimation(0, 0);
    parts_.statistics.prcUpdateStatistics();
    closeTick();
}

void CheckCycle::saveAtClosing() {
    Form1& form1 = forms_.form1;
    form1.Timer1.setEnabled(true);
    const std::exception_ptr failure = saveSettings();
    if (form1.chkAutoSave.ticked()) parts_.log.saveNewEntries();
    if (failure) std::rethrow_exception(failure);
}

// In a program that keeps running the log is saved whatever becomes of the settings; the failure is
// given, and reaches the fault path after it.
std::exception_ptr CheckCycle::saveSettings() {
    if (!forms_.form1.chkSaveSet.ticked()) return nullptr;
    try {
        parts_.settings.prcSettings(settings_order::write);
    } catch (const std::exception&) {
        if (!parts_.options.keepRunning) throw;
        return std::current_exception();
    }
    return nullptr;
}

// How every tick ends, whether it waited, checked or failed.
void CheckCycle::closeTick() {
    forms_.globals.bChecking = false;
    forms_.form1.ListView1.setEnabled(true);
    forms_.form1.Timer1.setEnabled(true);
    forms_.icon0.Hide();
}

void CheckCycle::reportErrorLimit() {
    host_.MsgBox({.text = "Please check your settings for errors"});
    // A failure to record the alert must not begin the tick again.
    resumeNext([this] {
        parts_.alerts.prcAlertInfo(alert_time::dateAndTime(clock_.Now()), rating::high,
                                   "Program Run Time Error: ", checkFlags, nullptr);
    });
}

// The fault path: reports the error; true when the tick is to begin again, false when it has ended.
bool CheckCycle::retryAfter(const RuntimeError& failure, std::int16_t& intErrCount) {
    forms_.form1.ListView1.setEnabled(true);
    ++intErrCount;
    // The row reaches the list even when the log file can't be written.
    resumeNext([&] {
        parts_.alerts.prcAlertInfo(alert_time::dateAndTime(clock_.Now()), rating::high,
                                   "Error: " + failure.description(), checkFlags, nullptr);
    });
    switch (failure.number()) {
        case error::outOfMemory:
            host_.MsgBox({.text = "Not enough memory for the task, quit program(s) or free up "
                                  "Memory",
                          .icon = BoxIcon::critical});
            break;
        case error::indexOutOfBounds:
        case error::invalidCall:
            break;
        default:
            return true;
    }
    closeTick();
    return false;
}

}  // namespace velmora
