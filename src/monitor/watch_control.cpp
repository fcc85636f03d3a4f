#include "monitor/watch_control.h"

#include "alerts/journal/alert_time.h"
#include "base/convert.h"
#include "base/drive_text.h"
#include "base/resume_next.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/form_numbers.h"
#include "forms/start_pause.h"
#include "monitor/watch_times.h"
#include "rows/watch_row.h"

namespace velmora {

namespace {

// The minute of the day, as both ends of the custom watch time are compared.
constexpr const char* minuteOfDay = "hh:mm AMPM";

}  // namespace

WatchControl::WatchControl(Forms& forms, Clock& clock, const Regional& regional, Host& host,
                           WatchControlParts parts)
    : forms_(forms), clock_(clock), regional_(regional), host_(host), parts_(parts) {
    Form1& form1 = forms_.form1;
    form1.cmdPause.Click.connect([this] { cmdPause_Click(); });
    form1.mnuPause.Click.connect([this] { mnuPause_Click(); });
    form1.TimerCust.Tick.connect([this] { TimerCust_Timer(); });
    form1.chkCustTime.Click.connect([this] { chkCustTime_Click(); });
    form1.UpDown1.UpClick.connect([this] { stepSeconds(forms_.form1.txtTime, 1, regional_); });
    form1.UpDown1.DownClick.connect([this] { stepSeconds(forms_.form1.txtTime, -1, regional_); });
    form1.UpDown2.UpClick.connect([this] { stepIntervalUp(); });
    form1.UpDown2.DownClick.connect([this] { stepIntervalDown(); });
}

void WatchControl::cmdPause_Click() {
    if (contains(lowerCase(forms_.form1.cmdPause.Caption()), "pause")) {
        pause();
    } else {
        start();
    }
}

void WatchControl::pause() {
    Form1& form1 = forms_.form1;
    form1.setCaption("Velmora - Watching Paused.");
    start_pause::offerStart(form1.Toolbar1);
    form1.mnuPause.setChecked(true);
    form1.cmdPause.setCaption(watch_caption::start);
    form1.Timer1.setEnabled(false);
    form1.StatusBar1.setPanelText(2, "Watch Paused.");
    forms_.globals.sTrayTip = "Velmora! Paused";
    parts_.tray.modifyIcon("Icon1");
    parts_.tray.modifyIcon("Icon0");
}

void WatchControl::start() {
    Form1& form1 = forms_.form1;
    form1.setCaption("Velmora - Watching Activated");
    start_pause::offerPause(form1.Toolbar1);
    form1.mnuPause.setChecked(false);
    if (form1.ListView1.Count() == 0) {
        host_.MsgBox({.text = "No Drive/Path currently listed.", .icon = BoxIcon::information});
        return;
    }
    form1.cmdPause.setCaption(watch_caption::pause);
    form1.Timer1.setEnabled(true);
    form1.StatusBar1.setPanelText(2, "Watching.");
    forms_.globals.sTrayTip = "Velmora! Started.";
    parts_.tray.modifyIcon("Form1");
}

void WatchControl::mnuPause_Click() {
    Form1& form1 = forms_.form1;
    const std::string caption = form1.Toolbar1.Buttons(tool::startPause).Caption;
    if (caption == start_pause::start) {
        form1.mnuPause.setCaption("Pause");
        form1.mnuPause.setChecked(true);
        cmdPause_Click();
        start_pause::offerPause(form1.Toolbar1);
    } else if (caption == start_pause::pause) {
        form1.mnuPause.setCaption("Start");
        form1.mnuPause.setChecked(false);
        cmdPause_Click();
        start_pause::offerStart(form1.Toolbar1);
    }
}

void WatchControl::chkCustTime_Click() {
    enableWatchTimes(forms_.form1.chkCustTime, forms_.form1.DTTime1);
}

void WatchControl::TimerCust_Timer() {
    try {
        const std::string tip = trayTip();
        forms_.globals.sTrayTip = tip;
        if (forms_.form1.chkSystray.ticked()) parts_.tray.prcToolTipText(tip);
        if (forms_.form1.chkCustTime.ticked()) runByCustomTime();
    } catch (const std::exception&) {
        const std::string text = "RunTime TimerC Error: " + currentRuntimeError().description();
        resumeNext([&] {
            parts_.alerts.prcAlertInfo(Format(clock_.Now(), alert_time::minutes), rating::medium,
                                       text, {}, nullptr);
        });
    }
}

std::string WatchControl::trayTip() {
    ListView& list = forms_.form1.ListView1;
    double total = 0;
    int watched = 0;
    int alerts = 0;
    const int count = list.Count();
    for (int i = 1; i <= count; ++i) {
        host_.DoEvents();
        if (i > list.Count()) break;
        const ConstWatchRow row(list.ListItems(i));
        if (!row.watched() || !row.isAvailableForTip()) continue;
        total += row.freeKBOrZero(regional_);
        ++watched;
        if (row.isInAlertForTip()) ++alerts;
    }
    return "Velmora\r\n" + std::to_string(watched) + " onWatch. \r\n" +
           prcSetDiskSizeDimension(total, regional_) + " Total Free. \r\n" +
           std::to_string(alerts) + " Alert(s).";
}

void WatchControl::runByCustomTime() {
    Form1& form1 = forms_.form1;
    if (form1.DTTime1[0].Value() == form1.DTTime1[1].Value()) moveEndOn();
    const std::string now = Format(clock_.Now(), minuteOfDay);
    const std::string& caption = form1.cmdPause.Caption();
    if (now == Format(form1.DTTime1[0].Value(), minuteOfDay)) {
        if (!contains(caption, "Pause") && contains(caption, "Start")) cmdPause_Click();
        report("Montoring Started by Custom Watch Time: ",
               "Velmora Started by Custom Watch Time: ");
    }
    if (now == Format(form1.DTTime1[1].Value(), minuteOfDay) && contains(caption, "Pause")) {
        cmdPause_Click();
        report("Montoring Paused by Custom Watch Time: ", "Velmora Paused by Custom Watch Time: ");
    }
    if (!form1.Timer1.Enabled()) switchTimerByStart();
}

void WatchControl::moveEndOn() {
    constexpr std::int64_t minute = 60;
    DatePicker& end = forms_.form1.DTTime1[1];
    DateTime later = fromSeconds(toSeconds(end.Value()) + minute);
    // The day stays: only the time of day counts, also past midnight.
    later.year = end.Value().year;
    later.month = end.Value().month;
    later.day = end.Value().day;
    end.setValue(later);
}

void WatchControl::report(const std::string& alertWords, const std::string& journalWords) {
    const DateTime now = clock_.Now();
    const std::string entry = journalWords + dateText(now, regional_) + pieceEnd;
    forms_.form1.txtAlert.prepend(entry);
    parts_.alerts.prcAlertInfo(Format(now, alert_time::minutes), rating::medium, alertWords, {},
                               nullptr);
    forms_.dlgAlert.Label1.prepend(entry);
    parts_.alertDialog.show();
}

// Both bounds are the start time; the end takes no part.
void WatchControl::switchTimerByStart() {
    Form1& form1 = forms_.form1;
    const std::string now = Format(clock_.Now(), "hh:mm:ss");
    const std::string start = Format(form1.DTTime1[0].Value(), "hh:mm:ss");
    form1.Timer1.setEnabled(now >= start && now <= start);
}

void WatchControl::stepIntervalDown() {
    DatePicker& interval = forms_.form1.DTPInterval;
    if (interval.Second() >= 10) interval.setSecond(interval.Second() - 10);
}

void WatchControl::stepIntervalUp() {
    DatePicker& interval = forms_.form1.DTPInterval;
    if (interval.Second() < 50) {
        interval.setSecond(interval.Second() + 10);
        return;
    }
    interval.setSecond(0);
    if (interval.Minute() < 59) {
        interval.setMinute(interval.Minute() + 1);
        return;
    }
    interval.setMinute(0);
    interval.setHour(interval.Hour() >= 23 ? 0 : interval.Hour() + 1);
}

}  // namespace velmora
