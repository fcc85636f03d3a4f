// For builds without libcurl.
#include "platform/network/mail_client.h"

namespace velmora::network {

namespace {

class NoMailClient final : public SmtpClient {
  public:
    std::string unavailableBecause() override {
        return "This program was built without the library that sends encrypted mail.";
    }
    void begin(SmtpMessage) override {}
    bool ended() override { return true; }
    std::string failure() override { return unavailableBecause(); }
    void cancel() override {}
    void waitForActivity(std::int32_t) override {}
};

}  // namespace

std::unique_ptr<SmtpClient> makeSmtpClient() {
    return std::make_unique<NoMailClient>();
}

}  // namespace velmora::network
