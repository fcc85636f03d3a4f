#include "monitor/row_check.h"

#include <memory>
#include <utility>

#include "alerts/journal/alert_time.h"
#include "base/convert.h"
#include "base/text.h"
#include "rows/watch_row.h"

namespace velmora {

// The path is a copy, since rows may go whenever handlers run.
RowOutcome RowCheck::check(int i, std::int32_t& lngMinSpace) {
    std::string text = std::exchange(text_, {});
    text = ConstWatchRow(forms_.form1.ListView1.ListItems(i)).path();
    const RowOutcome outcome = checkRow(i, text, lngMinSpace);
    text_ = std::move(text);
    return outcome;
}

RowOutcome RowCheck::checkRow(int i, const std::string& text, std::int32_t& lngMinSpace) {
    ListView& list = forms_.form1.ListView1;
    StatusBar& status = forms_.form1.StatusBar1;
    status.setPanelText(1, "Checking: ", text);
    const std::shared_ptr<Drive> drive = drives_.of(text);
    if (!drive->IsReady()) {
        drives_.forget();
        status.setPanelText(1, "Not Ready: ", text);
        WatchRow(list.ListItems(i)).setStateIcon(state_icon::none);
        parts_.events.rowNotReady(i);
        // A shortage reported before the drive went away is reported again once it is back.
        WatchRow(list.ListItems(i)).setFirstAlert("");
        return RowOutcome::done;
    }

    Measured measured{.drive = *drive};
    const RowOutcome outcome = testTrigger(i, lngMinSpace, measured);
    if (outcome != RowOutcome::done) return outcome;

    status.setPanelText(1, "Events Listing");
    if (parts_.events.checkEvents(i, measured.freeBytes)) drives_.forget();
    status.setPanelText(1, "Events Listing Check Done. 2");
    parts_.events.prcSetPrevInfoLV(WatchRow::at(list, i, text).item(), measured.freeBytes);
    status.setPanelText(1, "Refresh Info.:");

    if (measured.bShortage) {
        reportShortage(i, text, measured, lngMinSpace);
    } else {
        reportEnoughSpace(i, text);
    }
    return RowOutcome::done;
}

RowOutcome RowCheck::testTrigger(int i, std::int32_t& lngMinSpace, Measured& measured) {
    Form1& form1 = forms_.form1;
    WatchRow row(form1.ListView1.ListItems(i));
    if (form1.chkDrive.ticked()) lngMinSpace = toLong(row.trigger(), platform_.regional);
    if (form1.OpDriv[1].Value() && !toWholeKB(measured.drive, lngMinSpace)) {
        return RowOutcome::overHundredPercent;
    }
    measured.freeBytes = measured.drive.FreeSpace();
    measured.bShortage = kilobytes(measured.freeBytes) < lngMinSpace;
    row.setLastChecked(timeChecked_.of(
        platform_.clock.Now(), [](const DateTime& now) { return Format(now, "mm/dd HH:mm:ss"); }));
    return RowOutcome::done;
}

// From percent of the drive's size; false, with a box, for a value above 100. The result stays in
// the variable, so the next row starts from KB unless each row has a value of its own.
bool RowCheck::toWholeKB(Drive& drive, std::int32_t& lngMinSpace) {
    if (lngMinSpace > 100) {
        host_.MsgBox({.text = "Cannot check over 100% of space", .icon = BoxIcon::information});
        return false;
    }
    lngMinSpace = toLong(lngMinSpace * 0.01 * kilobytes(drive.TotalSize()));
    return true;
}

std::string RowCheck::shortageText(const Measured& measured, std::int32_t lngMinSpace) const {
    return " - ALERT: Space Shortage < " + withUnit(toText(lngMinSpace)) +
           " Drive: " + measured.drive.Path() + "[" +
           kilobyteText(measured.freeBytes, Grouping::regional, platform_.regional) + "]";
}

void RowCheck::reportShortage(int i, const std::string& text, const Measured& measured,
                              std::int32_t lngMinSpace) {
    Form1& form1 = forms_.form1;
    drives_.forget();
    const DateTime now = platform_.clock.Now();
    Shortage shortage{.row = i,
                      .rowText = text,
                      .drive = measured.drive,
                      .lngMinSpace = lngMinSpace,
                      .strAlert = shortageText(measured, lngMinSpace),
                      .strStamp = alert_time::dateAndTime(now),
                      .strNote = {}};
    parts_.alerts.prcAlertInfo(Format(platform_.clock.Now(), alert_time::minutes), rating::high,
                               shortage.strAlert, {},
                               &WatchRow::at(form1.ListView1, i, text).item());
    const std::string entry = shortage.strStamp + shortage.strAlert + "\r\n . \r\n";
    form1.txtAlert.prepend(entry);
    forms_.dlgAlert.Label1.prepend(entry);
    parts_.statistics.prcSrvAnimation(1, 1);
    form1.StatusBar1.setPanelText(1, "Animation:");
    runActions(shortage);
    showState(i, text, state_icon::alert);
}

void RowCheck::runActions(Shortage& shortage) {
    Form1& form1 = forms_.form1;
    for (int action = 0; action < form1.lstAct.ListCount(); ++action) {
        host_.DoEvents();
        if (!form1.lstAct.Selected(action)) continue;
        form1.StatusBar1.setPanelText(1, "Checking Events for: " + form1.lstAct.List(action));
        parts_.actions.run(action, shortage);
        showDialogForNewText(shortage);
    }
}

// The dialog already shows the shortage itself; it opens for text that an action has added.
void RowCheck::showDialogForNewText(const Shortage& shortage) {
    if (!forms_.dlgAlert.Label1.contains(shortage.strAlert)) parts_.alertDialog.show();
}

void RowCheck::reportEnoughSpace(int i, const std::string& text) {
    forms_.sysWorkSystray.tmrSystray.setEnabled(false);
    parts_.statistics.prcSrvAnimation(1, 0);
    showState(i, text, state_icon::ok);
}

// Handlers have run since the row was measured. If another row is in its place now, its icon stays
// as it is; the next check sets the icons of both.
void RowCheck::showState(int i, const std::string& text, const char* icon) {
    WatchRow row(forms_.form1.ListView1.ListItems(i));
    if (row.path() == text) row.setStateIcon(icon);
}

}  // namespace velmora
