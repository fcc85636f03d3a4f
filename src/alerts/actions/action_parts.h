// What every action on a shortage needs, and the two kinds of alert that actions raise.
#pragma once

#include <string>

#include "alerts/actions/shortage.h"
#include "alerts/journal/alert_list.h"
#include "alerts/system/system_actions.h"
#include "forms/forms.h"
#include "platform/host.h"
#include "platform/platform.h"
#include "rows/watch_row.h"

namespace velmora {

/// All of it must outlive the actions.
struct ActionParts {
    Forms& forms;
    Platform& platform;
    Host& host;
    AlertList& alerts;
    SystemActions& system;

    /// The short row. Read by its index, since handlers run before each action. Error 35600 when it
    /// is gone or another row is at its index: no action may run for a drive that isn't short of
    /// space.
    WatchRow row(const Shortage& shortage) const {
        return WatchRow::at(forms.form1.ListView1, shortage.row, shortage.rowText);
    }
};

/// A "Medium" alert of the short row, with minutes in its stamp.
void raiseForRow(ActionParts& parts, const Shortage& shortage, const std::string& text);
/// The running text as such an alert; it is empty afterwards.
void raiseRunningText(ActionParts& parts, Shortage& shortage);
/// The note as a "High" alert of no row, stamped with the present date and time; empty afterwards.
void raiseNote(ActionParts& parts, Shortage& shortage, std::string strNote);
/// A "Medium" alert of no row, with minutes in its stamp.
void raiseFileReport(ActionParts& parts, const std::string& text);

}  // namespace velmora
