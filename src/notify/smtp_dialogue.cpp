#include "notify/smtp_dialogue.h"

#include "notify/code_search.h"
#include "notify/report_text.h"

namespace velmora {

namespace {

// Short enough for a window that stays alive, long enough to cost no processor.
constexpr std::int32_t pollMilliseconds = 20;

struct Step {
    std::string sent;
    const char* code;  // null for a step without a reply
};

}  // namespace

bool SmtpDialogue::sendmail(Winsock& socket, std::string server, std::int32_t port,
                            std::string recipient, std::string sender, std::string displayName,
                            std::string subject, const std::string& body, Timer& timer,
                            bool isHtml) {
    if (socket.State() != socket_state::closed) socket.Close();
    socket.Connect(server, port);
    prcTimerStop(timer);
    prcTimerStart(timer);
    while (socket.State() != socket_state::connected) yield(socket);

    const std::string end = endLine();
    const Step steps[] = {
        {"", "220"},
        {"helo " + server + end, "250"},
        {"mail from:" + sender + end, "250"},
        {"rcpt to:" + recipient + end, "250"},
        {"DATA" + end, "354"},
        {"From: \"" + displayName + "\" " + sender + end, nullptr},
        {"Subject: " + subject + end, nullptr},
        // Without a line end: the recipient follows on the same line.
        {isHtml ? "Content-Type: text/html;" : "Content-Type: text/plain;", nullptr},
        {"To: " + recipient + end + end, nullptr},
        {body + end, nullptr},
        {end + "." + end, "25"},
    };
    for (const Step& step : steps) {
        if (!step.sent.empty()) socket.SendData(step.sent);
        if (step.code == nullptr || prcWaitReply(socket, step.code, timer)) continue;
        if (socket.State() == socket_state::connected) socket.Close();
        return false;
    }
    if (socket.State() == socket_state::connected) socket.Close();
    prcTimerStop(timer);
    return true;
}

bool SmtpDialogue::prcWaitReply(Winsock& socket, const std::string& code, Timer& timer) {
    CodeSearch search(code);
    bool found = search.isFoundWith(socket.GetData());
    prcTimerStop(timer);
    prcTimerStart(timer);
    while (!found) {
        yield(socket);
        if (socket.State() != socket_state::connected) return false;
        found = search.isFoundWith(socket.GetData());
    }
    return true;
}

void SmtpDialogue::prcTimerStop(Timer& timer) {
    timer.setEnabled(false);
    timer.setInterval(0);
}

// Without an interval it never ticks.
void SmtpDialogue::prcTimerStart(Timer& timer) {
    timer.setInterval(0);
    timer.setEnabled(true);
}

void SmtpDialogue::yield(Winsock& socket) {
    host_.DoEvents();
    socket.waitForActivity(pollMilliseconds);
}

}  // namespace velmora
