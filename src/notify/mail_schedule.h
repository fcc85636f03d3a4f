// The schedule of the mail, minute by minute. When it is due the body is composed, and nothing is
// sent.
#pragma once

#include <cstdint>

#include "forms/forms.h"
#include "notify/message_content.h"
#include "platform/clock.h"

namespace velmora {

class MailSchedule {
  public:
    /// Connects the tick of tmrEmail.
    MailSchedule(FrmNotify& form, Clock& clock, MessageContent& content);
    MailSchedule(const MailSchedule&) = delete;
    MailSchedule& operator=(const MailSchedule&) = delete;

    void tmrEmail_Timer();

    std::int32_t lngHourCount = 0;      ///< ticks of the present hour
    std::int32_t lngIntervalCount = 0;  ///< ticks since the interval was due

  private:
    bool isDue(int entry);
    bool isDueByInterval();

    FrmNotify& form_;
    Clock& clock_;
    MessageContent& content_;
};

}  // namespace velmora
