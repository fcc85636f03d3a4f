// What the program shows, reported on the console in the order in which it happens: new alerts,
// changed panels of the status bar and the status line of the mail.
#pragma once

#include <array>
#include <string>

#include "console/output.h"
#include "console/waiting.h"
#include "controls/bars.h"
#include "controls/connection.h"
#include "controls/list_item.h"
#include "controls/text_box.h"

namespace velmora::console {

/// Reports for as long as it lives.
class EventReport {
  public:
    EventReport(Notice<const ListItem&>& alertRaised, StatusBar& status, TextBox& mailStatus,
                Output& output, Waiting& waiting);
    EventReport(const EventReport&) = delete;
    EventReport& operator=(const EventReport&) = delete;

  private:
    void reportAlert(const ListItem& row);
    void reportPanel(int panel);
    void reportMail();

    // The number by which the status line of the mail is reported; panels count from 1.
    static constexpr int mailPanel = 0;

    StatusBar& status_;
    TextBox& mailStatus_;
    Output& output_;
    Waiting& waiting_;
    std::array<std::string, 4> shown_;  // texts reported last, by panel from 1
    ScopedConnection alerts_;
    ScopedConnection panels_;
    ScopedConnection mail_;
};

}  // namespace velmora::console
