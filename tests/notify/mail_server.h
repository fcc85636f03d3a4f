// A mail server behind the socket in memory, and an account that is filled in.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "controls/connection.h"
#include "notify/notify_rig.h"

namespace velmora::tests {

/// Thrown in a yield by a test that has seen a loop wait long enough. No std::exception, so that
/// nothing takes it.
struct StillWaiting {};

struct MailRig : NotifyRig {
    fake::FakeWinsock& socket = machine.winsock;
    Timer& timer = form.tim_timeoutSend;
    MailSending sending{forms, platform, host, content, alerts};

    std::string greeting = "220 ready\r\n";
    /// The server's replies by the beginning of what is sent; none to anything else.
    std::map<std::string, std::string> replies{{"helo ", "250 hello\r\n"},
                                               {"mail from:", "250 sender\r\n"},
                                               {"rcpt to:", "250 recipient\r\n"},
                                               {"DATA\r\n", "354 go on\r\n"},
                                               {"\r\n.\r\n", "250 taken\r\n"}};
    /// A piece that begins so makes the server close.
    std::string closesAt = "nothing";
    /// The connection and each reply come in the next yield only.
    bool slow = false;

    MailRig() {
        form.txtMailServer.setText("mail.example.org");
        form.txtYourEmail.setText("me@example.org");
        socket.onConnect = [this] { reply(greeting); };
        socket.onSend = [this](const std::string& piece) { answer(piece); };
        host.onYield = [this](int) { deliver(); };
    }

    void recipients(const Texts& entries) {
        for (const std::string& entry : entries) form.cboNotEmail.AddItem(entry);
    }
    void useProxy() {
        form.txtProxy.setText("proxy.example.org");
        form.txtPort.setText("8025");
        form.chkProxy.setValue(1);
    }
    void beSlow() {
        slow = true;
        socket.stateAfterConnect = socket_state::connecting;
    }
    /// What the slow server has for the next yield.
    void deliver() {
        if (socket.state == socket_state::connecting) {
            socket.state = socket_state::connected;
            pending_ = greeting;
            return;
        }
        if (socket.state != socket_state::connected) return;
        socket.received += std::exchange(pending_, {});
    }
    void reply(const std::string& text) { (slow ? pending_ : socket.received) += text; }

    /// What goes out for one mail, piece by piece.
    static Texts mail(const std::string& server, const std::string& recipient,
                      const std::string& body, const std::string& type = "plain") {
        return {"helo " + server + "\r\n",
                "mail from:me@example.org\r\n",
                "rcpt to:" + recipient + "\r\n",
                "DATA\r\n",
                "From: \"Velmora\" me@example.org\r\n",
                "Subject: Karvelle Velmora: system info\r\n",
                "Content-Type: text/" + type + ";",
                "To: " + recipient + "\r\n\r\n",
                body + "\r\n",
                "\r\n.\r\n"};
    }
    /// The status words of a run, in order.
    Texts statusWords() {
        Texts words;
        const ScopedConnection noted =
            form.StatusTxt.Change.connect([&] { words.push_back(form.StatusTxt.Text()); });
        sending.prcSendEmailZ();
        return words;
    }

  private:
    void answer(const std::string& piece) {
        if (piece.starts_with(closesAt)) {
            socket.state = socket_state::closing;
            return;
        }
        for (const auto& [begin, text] : replies) {
            if (piece.starts_with(begin)) reply(text);
        }
    }

    std::string pending_;
};

}  // namespace velmora::tests
