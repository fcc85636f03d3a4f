#include "alerts/actions/action_parts.h"

#include <utility>

#include "alerts/journal/alert_time.h"

namespace velmora {

void raiseForRow(ActionParts& parts, const Shortage& shortage, const std::string& text) {
    parts.alerts.prcAlertInfo(Format(parts.platform.clock.Now(), alert_time::minutes),
                              rating::medium, text, {}, &parts.row(shortage).item());
}

void raiseRunningText(ActionParts& parts, Shortage& shortage) {
    raiseForRow(parts, shortage, shortage.strAlert);
    shortage.strAlert.clear();
}

void raiseNote(ActionParts& parts, Shortage& shortage, std::string strNote) {
    shortage.strNote = std::move(strNote);
    parts.alerts.prcAlertInfo(alert_time::dateAndTime(parts.platform.clock.Now()), rating::high,
                              shortage.strNote, checkFlags, nullptr);
    shortage.strNote.clear();
}

void raiseFileReport(ActionParts& parts, const std::string& text) {
    parts.alerts.prcAlertInfo(Format(parts.platform.clock.Now(), alert_time::minutes),
                              rating::medium, text, {}, nullptr);
}

}  // namespace velmora
