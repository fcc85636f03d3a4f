// Sends mail with libcurl, on a thread of its own.
#pragma once

#include <memory>
#include <string>

#include "platform/smtp_client.h"

namespace velmora::network {

class CurlMailClient final : public SmtpClient {
  public:
    CurlMailClient();
    /// Gives up what is under way. Waits a moment for its thread, since a library that ends with
    /// the program must not be in use then; a thread that is stuck is left to itself.
    ~CurlMailClient() override;
    CurlMailClient(const CurlMailClient&) = delete;
    CurlMailClient& operator=(const CurlMailClient&) = delete;

    std::string unavailableBecause() override { return {}; }
    void begin(SmtpMessage message) override;
    bool ended() override;
    std::string failure() override;
    void cancel() override;
    void waitForActivity(std::int32_t milliseconds) override;

  private:
    struct Sending;
    class Threads;

    std::shared_ptr<Threads> threads_;
    std::shared_ptr<Sending> sending_;  // the last one; none before the first
};

}  // namespace velmora::network
