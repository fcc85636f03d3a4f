// The mail dialogue over a plain connection, driven by polling. It has no time-out of its own: a
// server that stays silent keeps it waiting, while timers and clicks go on.
#pragma once

#include <cstdint>
#include <string>

#include "controls/timer.h"
#include "platform/host.h"
#include "platform/winsock.h"

namespace velmora {

class SmtpDialogue {
  public:
    explicit SmtpDialogue(Host& host) : host_(host) {}

    /// Sends one message to one recipient; whether the server took all of it. All texts go out as
    /// they are at the call, whatever the user types meanwhile. A connection that fails is waited
    /// for without end. Errors are those of the socket.
    bool sendmail(Winsock& socket, std::string server, std::int32_t port, std::string recipient,
                  std::string sender, std::string displayName, std::string subject,
                  const std::string& body, Timer& timer, bool isHtml);
    /// Waits until the code occurs anywhere in what the server has sent since the call. False when
    /// the connection is no longer there.
    bool prcWaitReply(Winsock& socket, const std::string& code, Timer& timer);
    static void prcTimerStop(Timer& timer);
    static void prcTimerStart(Timer& timer);

  private:
    void yield(Winsock& socket);

    Host& host_;
};

}  // namespace velmora
