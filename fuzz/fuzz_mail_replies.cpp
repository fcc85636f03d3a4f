// Any bytes as what a mail server says, cut into packets: a sending ends or keeps polling, only
// run-time errors leave a dialogue, and what the server sent isn't hoarded.
//
// Input: a byte for how the server ends (by silence, by closing, by a failing connection), then
// packets: a byte for the length, and as many bytes. Each yield brings one packet.
#include <algorithm>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "controls/form.h"
#include "fake/fake_host.h"
#include "fake/fake_network.h"
#include "fuzz_target.h"
#include "notify/code_search.h"
#include "notify/smtp_dialogue.h"

using namespace velmora;

namespace {

/// Thrown in a yield when the server has said all, and the dialogue waits on.
struct StillWaiting {};

constexpr int silentYields = 5;
constexpr std::size_t piecesOfAMail = 10;
constexpr const char* codes[] = {"220", "250", "354", "25"};

/// The server that the input describes, and the dialogue with it.
class Conversation {
  public:
    explicit Conversation(std::string_view input) {
        if (input.empty()) return;
        end_ = static_cast<unsigned char>(input[0]) % 3;
        std::size_t at = 1;
        while (at < input.size()) {
            const std::size_t size = static_cast<unsigned char>(input[at]);
            packets_.emplace_back(input.substr(at + 1, size));
            at += 1 + size;
        }
        host_.onYield = [this](int) { onYield(); };
    }

    enum class Outcome { taken, refused, failed, waiting };

    Outcome run() {
        try {
            const bool taken =
                dialogue_.sendmail(socket, "mail.example.org", 25, "you@example.org",
                                   "me@example.org", "name", "subject", "body", timer_, false);
            return taken ? Outcome::taken : Outcome::refused;
        } catch (const RuntimeError&) {
            return Outcome::failed;
        } catch (const StillWaiting&) {
            return Outcome::waiting;
        }
    }
    const std::vector<std::string>& packets() const { return packets_; }

    fake::FakeWinsock socket;

  private:
    void onYield() {
        if (next_ < packets_.size()) {
            socket.received += packets_[next_++];
        } else if (end_ != 0) {
            socket.state = end_ == 1 ? socket_state::closing : socket_state::failed;
        } else if (++silent_ > silentYields) {
            throw StillWaiting();
        }
    }

    fake::FakeHost host_;
    Form form_{"frmNotify"};
    Timer timer_{form_, "tim_timeoutSend", 60000, false};
    SmtpDialogue dialogue_{host_};
    std::vector<std::string> packets_;
    std::size_t next_ = 0;
    int end_ = 0;
    int silent_ = 0;
};

std::string joined(const std::vector<std::string>& packets) {
    std::string all;
    for (const std::string& packet : packets) all += packet;
    return all;
}

// However the packets are cut, a code is found when it is in them, and next to nothing is kept.
void searchFor(const std::string& code, const std::vector<std::string>& packets) {
    CodeSearch search(code);
    std::string all;
    for (const std::string& packet : packets) {
        all += packet;
        const bool found = search.isFoundWith(packet);
        require(found == (all.find(code) != std::string::npos), "a code is found where it ends");
        if (found) return;
        require(search.kept() < code.size(), "what can't matter is dropped");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    Conversation conversation(asText(data, size));
    using Outcome = Conversation::Outcome;
    const Outcome outcome = conversation.run();
    const auto& sent = conversation.socket.sent;
    const std::string all = joined(conversation.packets());
    const auto said = [&all](const char* code) { return all.find(code) != std::string::npos; };
    require(sent.size() <= piecesOfAMail, "a mail has ten pieces");
    if (outcome == Outcome::taken) {
        require(sent.size() == piecesOfAMail, "a mail that was taken went out whole");
        for (const char* code : codes) require(said(code), "every code was said");
        require(conversation.socket.state == socket_state::closed, "it is closed at the end");
    }
    if (!sent.empty()) require(said("220"), "nothing goes out before the greeting");
    require(sent.size() < 5 || said("354"), "no text before the server wants it");
    for (const char* code : codes) searchFor(code, conversation.packets());
    return 0;
}
