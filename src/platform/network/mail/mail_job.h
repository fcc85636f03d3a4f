// One sending of a message: what is refused beforehand, and the transfer itself.
#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>

#include "platform/smtp_client.h"

namespace velmora::network {

struct CurlCalls;

/// Why a message can't go out at all; empty when it can. A line break in a name or an address could
/// give the server further commands.
std::string objectionTo(const SmtpMessage& message);

/// How long a sending may take.
inline constexpr std::chrono::milliseconds mailLimit{60'000};

/// A transfer that can be ended from another thread.
class MailJob {
  public:
    MailJob();
    ~MailJob() { close(); }
    MailJob(const MailJob&) = delete;
    MailJob& operator=(const MailJob&) = delete;

    /// Sends and gives the reason why the server didn't take the message; empty when it did. The
    /// password is wiped from the message.
    std::string send(SmtpMessage& message);
    /// Frees what it holds of the library, on the thread that has sent. Nothing is sent any more.
    void close();
    /// Ends `send` soon. This may come from another thread, at any time.
    void cancel();

  private:
    struct Transfer;

    std::string perform(Transfer& transfer);

    const CurlCalls* curl_;  // null where the library can't be loaded
    std::mutex mutex_;       // guards against waking what is being closed
    void* multi_;            // the library's handle that waits for the transfer; null once closed
    std::atomic<bool> isCancelled_ = false;
};

}  // namespace velmora::network
