#include "alerts/journal/alert_list.h"

#include "alerts/journal/alert_time.h"
#include "base/convert.h"
#include "base/text.h"
#include "forms/sort_column.h"
#include "rows/alert_row.h"
#include "rows/watch_row.h"

namespace velmora {

AlertList::AlertList(Forms& forms, Platform& platform, LogFile& log, NotifyArea& notifyArea)
    : forms_(forms), platform_(platform), log_(log), notifyArea_(notifyArea) {
    Form1& form1 = forms_.form1;
    log_.Trouble.connect([this](const LogTrouble& trouble) { raise(trouble); });
    form1.UpDown3.Change.connect([this] { UpDown3_Change(); });
    form1.LVAlert.ColumnClick.connect(
        [&form1](int clicked) { prcSortColumn(form1.LVAlert, clicked); });
    form1.LVFile.ColumnClick.connect(
        [&form1](int clicked) { prcSortColumn(form1.LVFile, clicked); });
    form1.cmdAddIcon.Click.connect([this] { prcAlertIcon(); });
}

void AlertList::prcAlertInfo(const std::string& strTime, const std::string& strRating,
                             const std::string& strAlert, AlertFlags flags, ListItem* itmWatch) {
    if (itmWatch != nullptr && isRepeat(*itmWatch, strAlert)) return;

    ListItem& item = forms_.form1.LVAlert.Add(1, strRating);
    AlertRow row(item);
    row.setTime(strTime);
    row.setText(strAlert);
    Raised(item);
    count(strRating);
    appendToLog(item, strAlert);
    if (lowerCase(strRating) == "high" || flags.iFlag4 == 1) {
        forms_.sysWorkSystray.tmrSystray.setEnabled(true);
    }
}

// The row keeps the first text only: a different one passes every time and leaves it in place.
bool AlertList::isRepeat(ListItem& item, const std::string& strAlert) {
    WatchRow row(item);
    if (row.firstAlert().empty()) {
        row.setFirstAlert(strAlert);
        return false;
    }
    return row.firstAlert() == strAlert;
}

void AlertList::count(const std::string& strRating) {
    Globals& globals = forms_.globals;
    globals.lngAlertsRaised = addLong(globals.lngAlertsRaised, 1);
    if (strRating == rating::high) {
        globals.lngHighRatedAlerts = addLong(globals.lngHighRatedAlerts, 1);
    }
}

void AlertList::appendToLog(const ListItem& item, const std::string& strAlert) {
    const Form1& form1 = forms_.form1;
    if (!form1.chkAutoSave.ticked()) return;
    // A missing file is made by the journal's save at the end of a check, not here.
    const std::string& path = form1.lblLog.Caption();
    if (!platform_.fso.FileExists(path)) return;
    const ConstAlertRow row(item);
    log_.appendLine(path, row.time() + " | " + row.rating() + " | " + strAlert);
}

void AlertList::raise(const LogTrouble& trouble) {
    prcAlertInfo(Format(platform_.clock.Now(), alert_time::minutes), trouble.rating, trouble.text,
                 {}, nullptr);
}

void AlertList::prcLVLimit(std::int32_t lngLimit, ListView& lvList) {
    if (lngLimit >= lvList.Count()) return;
    const std::int16_t surplus = toInteger(static_cast<double>(lvList.Count()) - lngLimit);
    int row = lvList.Count();
    for (int removed = 0; removed < surplus && row >= 1; ++removed) lvList.Remove(row--);
}

void AlertList::UpDown3_Change() {
    Form1& form1 = forms_.form1;
    const double limit = toDouble(form1.txtAmt.Text(), platform_.regional);
    if (limit < form1.LVAlert.Count()) prcLVLimit(toLong(limit), form1.LVAlert);
}

void AlertList::prcAlertIcon() {
    // The program's own icon shows alerts by itself.
    if (forms_.form1.chkSystray.ticked()) return;
    NotifyIconData data;
    data.window = forms_.form1.Name();
    data.icon = "tray 1";
    data.tip = "Alert!";
    notifyArea_.Shell_NotifyIconA(NotifyMessage::add, data);
}

}  // namespace velmora
