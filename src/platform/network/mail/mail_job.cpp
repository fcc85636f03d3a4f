#include "platform/network/mail/mail_job.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string_view>
#include <utility>

#include "platform/network/curl_calls.h"
#include "platform/network/mail/mail_failure.h"

namespace velmora::network {

namespace {

constexpr std::int32_t lastPort = 65535;

bool hasControlCharacter(const std::string& text) {
    return std::any_of(text.begin(), text.end(), [](char letter) {
        return static_cast<unsigned char>(letter) < ' ' || letter == '\x7f';
    });
}

std::string urlOf(const SmtpMessage& message) {
    std::string host = message.server;
    if (host.find(':') != std::string::npos && !host.starts_with('[')) host = '[' + host + ']';
    const char* const scheme = message.encryption == Encryption::tls ? "smtps://" : "smtp://";
    return scheme + host + ':' + std::to_string(message.port);
}

// Letters, digits and what else names and addresses consist of: anything else would end the name
// within the URL. Letters of other scripts are the resolver's matter.
bool isHostName(const std::string& name) {
    constexpr std::string_view others = ".-_:[]";
    return !name.empty() && std::all_of(name.begin(), name.end(), [others](char letter) {
        const auto byte = static_cast<unsigned char>(letter);
        const bool isLetter = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
        const bool isDigit = letter >= '0' && letter <= '9';
        return isLetter || isDigit || byte >= 0x80 || others.find(letter) != others.npos;
    });
}

std::size_t takeReplyLine(char* bytes, std::size_t /*one*/, std::size_t count, void* target) {
    static_cast<ServerReplies*>(target)->add({bytes, count});
    return count;
}

}  // namespace

std::string objectionTo(const SmtpMessage& message) {
    const auto objection = [](const char* what) {
        return std::string(what) + " has a line break or another control character.";
    };
    if (hasControlCharacter(message.server)) return objection("The name of the mail server");
    if (hasControlCharacter(message.user)) return objection("The user name");
    if (hasControlCharacter(message.sender)) return objection("The sender's address");
    if (hasControlCharacter(message.recipient)) return objection("The recipient's address");
    if (!isHostName(message.server)) {
        return "\"" + message.server + "\" is no name of a mail server.";
    }
    if (message.port < 1 || message.port > lastPort) {
        return "The port " + std::to_string(message.port) + " is not between 1 and 65535.";
    }
    if (message.recipient.empty()) return "The message has no recipient.";
    return {};
}

// What the library works with while it sends; it keeps pointers into it.
struct MailJob::Transfer {
    Transfer(const CurlCalls& calls, const SmtpMessage& sent, const std::atomic<bool>& cancelled)
        : curl(calls), message(sent), isCancelled(cancelled) {}
    ~Transfer() {
        curl.easyCleanup(handle);
        curl.slistFreeAll(recipients);
    }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    template <typename Value>
    bool set(CURLoption option, Value value) {
        return curl.easySetopt(handle, option, value) == CURLE_OK;
    }
    bool prepare();
    bool addressMessage();
    bool secure();
    bool mayEndEarly();
    std::size_t giveData(char* target, std::size_t room);
    static std::size_t giveDataTo(char* target, std::size_t one, std::size_t count, void* self) {
        return static_cast<Transfer*>(self)->giveData(target, one * count);
    }

    // Taking a transfer away from the library would let it finish the message as far as it has
    // come; ended by this call it drops the message.
    static int isToEnd(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
        const auto& transfer = *static_cast<const Transfer*>(self);
        return transfer.isCancelled || transfer.saysGoodbye ? 1 : 0;
    }
    static int noteCommand(CURL*, curl_infotype kind, char* bytes, std::size_t count, void* self) {
        const bool isGoodbye =
            kind == CURLINFO_HEADER_OUT && std::string_view(bytes, count).starts_with("QUIT");
        if (isGoodbye) static_cast<Transfer*>(self)->saysGoodbye = true;
        return 0;
    }

    const CurlCalls& curl;
    const SmtpMessage& message;
    const std::atomic<bool>& isCancelled;
    bool saysGoodbye = false;  // the outcome is known then, and the farewell not worth waiting for
    CURL* handle = curl.easyInit();
    curl_slist* recipients = nullptr;
    std::size_t given = 0;  // bytes of the message
    ServerReplies replies;
    std::array<char, CURL_ERROR_SIZE> words{};
};

std::size_t MailJob::Transfer::giveData(char* target, std::size_t room) {
    const std::size_t count = std::min(room, message.data.size() - given);
    std::memcpy(target, message.data.data() + given, count);
    given += count;
    return count;
}

bool MailJob::Transfer::addressMessage() {
    recipients = curl.slistAppend(nullptr, message.recipient.c_str());
    const auto size = static_cast<curl_off_t>(message.data.size());
    return recipients && set(CURLOPT_MAIL_FROM, message.sender.c_str()) &&
           set(CURLOPT_MAIL_RCPT, recipients) && set(CURLOPT_UPLOAD, 1L) &&
           set(CURLOPT_INFILESIZE_LARGE, size) && set(CURLOPT_READFUNCTION, giveDataTo) &&
           set(CURLOPT_READDATA, this);
}

// Certificate and name are checked. VELMORA_CA_FILE names a file with the certificates to trust
// instead of the system's: for a company that has its own authority, and for tests.
bool MailJob::Transfer::secure() {
    const char* const authorities = std::getenv("VELMORA_CA_FILE");
    if (authorities && *authorities != '\0' && !set(CURLOPT_CAINFO, authorities)) return false;
    return set(CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL)) &&
           set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2)) &&
           set(CURLOPT_SSL_VERIFYPEER, 1L) && set(CURLOPT_SSL_VERIFYHOST, 2L) &&
           // A list of withdrawn certificates that can't be had is no reason to fail.
           set(CURLOPT_SSL_OPTIONS, static_cast<long>(CURLSSLOPT_REVOKE_BEST_EFFORT));
}

bool MailJob::Transfer::mayEndEarly() {
    return set(CURLOPT_NOPROGRESS, 0L) && set(CURLOPT_XFERINFOFUNCTION, isToEnd) &&
           set(CURLOPT_XFERINFODATA, this) && set(CURLOPT_VERBOSE, 1L) &&
           set(CURLOPT_DEBUGFUNCTION, noteCommand) && set(CURLOPT_DEBUGDATA, this) &&
           // The farewell belongs to this transfer, so that it can be cut short.
           set(CURLOPT_FORBID_REUSE, 1L);
}

bool MailJob::Transfer::prepare() {
    if (!handle) return false;
    const bool hasUser = !message.user.empty();
    return set(CURLOPT_URL, urlOf(message).c_str()) && set(CURLOPT_PROTOCOLS_STR, "smtp,smtps") &&
           addressMessage() && secure() && mayEndEarly() &&
           set(CURLOPT_TIMEOUT_MS, static_cast<long>(mailLimit.count())) &&
           // Neither signals nor waiting for the thread that asks a name server which is silent.
           set(CURLOPT_NOSIGNAL, 1L) && set(CURLOPT_QUICK_EXIT, 1L) &&
           // Proxies of the environment are made for web pages.
           set(CURLOPT_PROXY, "") && set(CURLOPT_ERRORBUFFER, words.data()) &&
           set(CURLOPT_HEADERFUNCTION, takeReplyLine) && set(CURLOPT_HEADERDATA, &replies) &&
           (!hasUser || (set(CURLOPT_USERNAME, message.user.c_str()) &&
                         set(CURLOPT_PASSWORD, message.password.text().c_str())));
}

MailJob::MailJob() : curl_(curlCalls()), multi_(curl_ ? curl_->multiInit() : nullptr) {}

void MailJob::close() {
    void* closing = nullptr;
    {
        const std::lock_guard lock(mutex_);
        std::swap(closing, multi_);
    }
    if (closing) curl_->multiCleanup(closing);
}

void MailJob::cancel() {
    isCancelled_ = true;
    const std::lock_guard lock(mutex_);
    if (multi_) curl_->multiWakeup(multi_);
}

std::string MailJob::send(SmtpMessage& message) {
    if (!curl_) {
        message.password.wipe();
        return "The library that sends mail (libcurl) could not be made ready.";
    }
    Transfer transfer(*curl_, message, isCancelled_);
    const bool isPrepared = transfer.prepare();
    // The library has a copy of its own by now.
    message.password.wipe();
    if (!isPrepared || !multi_) return "There is not enough memory to send the message.";
    if (curl_->multiAddHandle(multi_, transfer.handle) != CURLM_OK) {
        return "The sending could not be begun.";
    }
    std::string failure = perform(transfer);
    curl_->multiRemoveHandle(multi_, transfer.handle);
    return failure;
}

std::string MailJob::perform(Transfer& transfer) {
    constexpr int longestWait = 1000;  // milliseconds; the library ends it sooner when it must
    while (true) {
        int running = 0;
        if (curl_->multiPerform(multi_, &running) != CURLM_OK) break;
        int left = 0;
        if (const CURLMsg* told = curl_->multiInfoRead(multi_, &left);
            told && told->msg == CURLMSG_DONE) {
            const MailOutcome outcome{.result = told->data.result,
                                      .words = transfer.words.data(),
                                      .replies = transfer.replies};
            return failureInWords(outcome, transfer.message);
        }
        if (curl_->multiPoll(multi_, nullptr, 0, longestWait, nullptr) != CURLM_OK) break;
    }
    return "The sending could not go on.";
}

}  // namespace velmora::network
