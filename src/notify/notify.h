// The notification as one part of the program: the mail, its window and schedule, and the question
// for updates.
#pragma once

#include <string>

#include "alerts/journal/alert_list.h"
#include "notify/inventory.h"
#include "notify/mail_schedule.h"
#include "notify/mail_sending.h"
#include "notify/message_content.h"
#include "notify/notify_window.h"
#include "notify/update_check.h"

namespace velmora {

class Notify {
  public:
    /// Connects the handlers to the forms. All of the arguments must outlive it. `version` as the
    /// program has it ("1.2.0").
    Notify(Forms& forms, Platform& platform, Host& host, AlertList& alerts,
           const std::string& version)
        : inventory_(platform, host),
          content_(forms, platform, host, inventory_),
          sending_(forms, platform, host, content_, alerts),
          schedule_(forms.frmNotify, platform.clock, content_),
          window_(forms, host, inventory_),
          updateCheck_(forms, platform, host, version) {}

    UpdateCheck& updateCheck() { return updateCheck_; }
    Inventory& inventory() { return inventory_; }
    MessageContent& content() { return content_; }
    /// To be called once the settings are read.
    void afterLoad() { window_.afterLoad(); }

  private:
    Inventory inventory_;
    MessageContent content_;
    MailSending sending_;
    MailSchedule schedule_;
    NotifyWindow window_;
    UpdateCheck updateCheck_;
};

}  // namespace velmora
