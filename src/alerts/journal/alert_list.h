// The alert list: everything notable that the program does or finds becomes one row of LVAlert,
// newest on top, held in memory only.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/journal/log_file.h"
#include "forms/forms.h"
#include "platform/notify_area.h"
#include "platform/platform.h"

namespace velmora {

/// Follows each piece of the texts that alerts and journal collect.
inline constexpr const char* pieceEnd = "\r\n.\r\n";

/// The four flags that callers hand over with an alert. Only the fourth has an effect: 1 starts the
/// tray's blinking, with any rating.
struct AlertFlags {
    std::int16_t iFlag1 = 0;
    std::int16_t iFlag2 = 0;
    std::int16_t iFlag3 = 0;
    std::int16_t iFlag4 = 0;
};

/// The flags of the check's own alerts.
inline constexpr AlertFlags checkFlags{1, 1, 0, 0};

class AlertList {
  public:
    /// Connects its handlers to the forms, which must outlive it like the rest.
    AlertList(Forms& forms, Platform& platform, LogFile& log, NotifyArea& notifyArea);
    AlertList(const AlertList&) = delete;
    AlertList& operator=(const AlertList&) = delete;

    /// Raises an alert: drops it when `itmWatch` is a row whose first alert had the same text, else
    /// adds a row, counts it, writes it to the log file (when that is on and the file exists) and
    /// starts the tray's blinking for a high one. Errors of the log file go to the caller, with the
    /// row added and counted; error 6 when a counter overflows.
    void prcAlertInfo(const std::string& strTime, const std::string& strRating,
                      const std::string& strAlert, AlertFlags flags, ListItem* itmWatch);
    /// Does nothing; kept in the interface.
    void prcAlertInfoPre() {}
    /// Removes rows from the bottom until `lngLimit` are left. Error 6 when more than 32767 would
    /// be removed: the count is a 16-bit number.
    static void prcLVLimit(std::int32_t lngLimit, ListView& lvList);
    /// Adds the tray icon in its alert form.
    void prcAlertIcon();

    /// A new row is in the list: for views that report each alert at once.
    Notice<const ListItem&> Raised;

  private:
    static bool isRepeat(ListItem& item, const std::string& strAlert);
    void count(const std::string& strRating);
    void appendToLog(const ListItem& item, const std::string& strAlert);
    void raise(const LogTrouble& trouble);
    void UpDown3_Change();

    Forms& forms_;
    Platform& platform_;
    LogFile& log_;
    NotifyArea& notifyArea_;
};

}  // namespace velmora
