// One watched row of a check: measure its drive, compare it with its trigger, look for events and,
// on a shortage, raise the alert and run the ticked actions.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/actions/action_table.h"
#include "alerts/dialog/alert_dialog_window.h"
#include "alerts/journal/alert_list.h"
#include "base/time_text.h"
#include "forms/forms.h"
#include "monitor/event_detection.h"
#include "monitor/pass_drives.h"
#include "monitor/space_statistics.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

enum class RowOutcome {
    done,
    overHundredPercent,  ///< the percent value isn't one: the check closes at once
};

/// What the check of a row calls.
struct RowCheckParts {
    AlertList& alerts;
    AlertDialogWindow& alertDialog;
    const ActionTable& actions;
    EventPass& events;
    SpaceStatistics& statistics;
};

class RowCheck {
  public:
    RowCheck(Forms& forms, Platform& platform, Host& host, RowCheckParts parts)
        : forms_(forms),
          platform_(platform),
          host_(host),
          parts_(parts),
          drives_(platform.fso, platform.clock) {}

    /// Checks row `i` of ListView1. `lngMinSpace` is carried from row to row: percent mode turns
    /// it into KB and leaves it so.
    RowOutcome check(int i, std::int32_t& lngMinSpace);
    /// Something has run between two rows: no reading of a drive serves a later one.
    void forgetReadings() { drives_.forget(); }

  private:
    /// The drive's answers of one check: its row and the alerts all show the same ones.
    struct Measured {
        Drive& drive;
        double freeBytes = 0;
        bool bShortage = false;
    };

    RowOutcome checkRow(int i, const std::string& text, std::int32_t& lngMinSpace);
    RowOutcome testTrigger(int i, std::int32_t& lngMinSpace, Measured& measured);
    bool toWholeKB(Drive& drive, std::int32_t& lngMinSpace);
    std::string shortageText(const Measured& measured, std::int32_t lngMinSpace) const;
    void reportShortage(int i, const std::string& text, const Measured& measured,
                        std::int32_t lngMinSpace);
    void runActions(Shortage& shortage);
    void showDialogForNewText(const Shortage& shortage);
    void reportEnoughSpace(int i, const std::string& text);
    void showState(int i, const std::string& text, const char* icon);

    Forms& forms_;
    Platform& platform_;
    Host& host_;
    RowCheckParts parts_;
    PassDrives drives_;
    TimeText timeChecked_;
    std::string text_;  // of the row, kept for the room that it has
};

}  // namespace velmora
