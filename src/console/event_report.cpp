#include "console/event_report.h"

#include <cstddef>

#include "rows/alert_row.h"

namespace velmora::console {

EventReport::EventReport(Notice<const ListItem&>& alertRaised, StatusBar& status,
                         TextBox& mailStatus, Output& output, Waiting& waiting)
    : status_(status),
      mailStatus_(mailStatus),
      output_(output),
      waiting_(waiting),
      alerts_(alertRaised.connect([this](const ListItem& row) { reportAlert(row); })),
      panels_(status.PanelChanged.connect([this](int panel) { reportPanel(panel); })),
      mail_(mailStatus.Change.connect([this] { reportMail(); })) {}

void EventReport::reportAlert(const ListItem& row) {
    output_.alert(row);
    waiting_.seenInAlert(ConstAlertRow(row).text());
}

// When only the picture of a panel has changed, its text isn't reported again.
void EventReport::reportPanel(int panel) {
    const std::string& text = status_.Panels(panel).Text;
    std::string& shown = shown_.at(static_cast<std::size_t>(panel));
    if (shown == text) return;
    shown = text;
    output_.status(panel, text);
    waiting_.seen(text);
}

void EventReport::reportMail() {
    const std::string& text = mailStatus_.Text();
    output_.status(mailPanel, text);
    waiting_.seen(text);
}

}  // namespace velmora::console
