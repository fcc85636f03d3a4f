// The network in memory: a socket whose server is a test's function, pages, dial-up connections,
// and the encrypted mail.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "platform/internet_transfer.h"
#include "platform/rasapi32.h"
#include "platform/smtp_client.h"
#include "platform/winsock.h"

namespace velmora::fake {

class FakeWinsock final : public Winsock {
  public:
    int State() override {
        count("State");
        return state;
    }
    void Connect(const std::string& host, std::int32_t port) override {
        count("Connect " + host + " " + std::to_string(port));
        if (state != socket_state::closed) throw RuntimeError(wrongState);
        if (port < 1 || port > greatestPort) throw RuntimeError(error::invalidPropertyValue);
        state = stateAfterConnect;
        if (state == socket_state::connected && onConnect) onConnect();
    }
    void SendData(const std::string& data) override {
        count("SendData");
        if (state != socket_state::connected) throw RuntimeError(notConnected);
        sent.push_back(data);
        if (onSend) onSend(data);
    }
    std::string GetData() override {
        count("GetData");
        if (state != socket_state::connected && state != socket_state::closing) {
            throw RuntimeError(notConnected);
        }
        return std::exchange(received, {});
    }
    void Close() override {
        count("Close");
        state = socket_state::closed;
        received.clear();
    }
    void waitForActivity(std::int32_t milliseconds) override {
        count("waitForActivity " + std::to_string(milliseconds));
    }

    /// All that was sent, in one text.
    std::string wire() const {
        std::string all;
        for (const std::string& piece : sent) all += piece;
        return all;
    }
    int countOf(const std::string& prefix) const {
        return static_cast<int>(
            std::count_if(calls.begin(), calls.end(),
                          [&prefix](const std::string& call) { return call.starts_with(prefix); }));
    }
    /// The n-th call from now (from 1) raises an error, once.
    void failCall(int n) { failAt_ = n; }

    int state = socket_state::closed;
    int stateAfterConnect = socket_state::connected;
    std::string received;                            ///< what the next GetData gives
    std::function<void()> onConnect;                 ///< the server's greeting
    std::function<void(const std::string&)> onSend;  ///< the server's answer to one piece
    std::vector<std::string> sent;                   ///< the pieces, in order
    std::vector<std::string> calls;                  ///< all calls, in order

    static constexpr int wrongState = socket_error::wrongState;
    static constexpr int notConnected = socket_error::notConnected;

  private:
    static constexpr std::int32_t greatestPort = 65535;

    void count(std::string call) {
        calls.push_back(std::move(call));
        if (failAt_ > 0 && --failAt_ == 0) throw RuntimeError(notConnected);
    }

    int failAt_ = 0;
};

class FakeInternet final : public InternetTransfer {
  public:
    std::string OpenURL(const std::string& url) override {
        opened.push_back(url);
        if (failsWith != 0) throw RuntimeError(failsWith);
        return pages.contains(url) ? pages[url] : std::string();
    }

    std::map<std::string, std::string> pages;  ///< by address; others are empty
    std::vector<std::string> opened;
    int failsWith = 0;  ///< the error of the next calls
};

class FakeRasapi32 final : public Rasapi32 {
  public:
    std::uint32_t RasEnumConnectionsA(RasConnections& connections, std::uint32_t& size,
                                      std::uint32_t& count) override {
        askedSizes = {connections[0].dwSize, size};
        if (enumResult != 0) return enumResult;
        if (connections[0].dwSize != ras::connectionRecord) return ras::invalidSize;
        connections[0].hRasConn = handle;
        count = handle == 0 ? 0 : 1;
        return 0;
    }
    std::uint32_t RasGetConnectStatusA(std::uint64_t connection, RasConnStatus& status) override {
        askedStatus = {connection, status.dwSize};
        if (statusResult != 0) return statusResult;
        if (status.dwSize != ras::statusRecord) return ras::invalidSize;
        if (connection == 0) return invalidHandle;
        status.rasconnstate = state;
        return 0;
    }

    std::uint64_t handle = 0;  ///< of the first connection, 0 for none
    std::uint32_t state = 0;   ///< of that connection
    std::uint32_t enumResult = 0;
    std::uint32_t statusResult = 0;
    std::pair<std::uint32_t, std::uint32_t> askedSizes;   ///< of a record and of the array
    std::pair<std::uint64_t, std::uint32_t> askedStatus;  ///< handle and size of the record

  private:
    static constexpr std::uint32_t invalidHandle = 6;
};

/// Takes encrypted mail at the next question, unless the test sets how it ends.
class FakeSmtpClient final : public SmtpClient {
  public:
    std::string unavailableBecause() override { return unavailable; }
    void begin(SmtpMessage message) override {
        messages.push_back(std::move(message));
        remaining = napsToEnd;
    }
    bool ended() override { return remaining <= 0; }
    std::string failure() override {
        const bool isKnown = !messages.empty() && reasons.contains(messages.back().recipient);
        return isKnown ? reasons[messages.back().recipient] : reason;
    }
    void cancel() override {
        ++cancelled;
        remaining = 0;
    }
    void waitForActivity(std::int32_t) override { --remaining; }

    std::string unavailable;
    std::string reason;                          ///< why a sending fails; empty for success
    std::map<std::string, std::string> reasons;  ///< the same for single recipients
    int napsToEnd = 0;                           ///< how often it is waited for before it ends
    std::vector<SmtpMessage> messages;
    int cancelled = 0;

  private:
    int remaining = 0;
};

}  // namespace velmora::fake
