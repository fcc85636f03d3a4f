#include "platform/network/mail/mail_failure.h"

#include <algorithm>

#include "platform/network/curl_calls.h"

namespace velmora::network {

namespace {

constexpr std::size_t longestReply = 512;  // bytes, as the protocol has it

bool contains(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

// "The server ... (its own words)", as far as there are such.
std::string withWords(const std::string& reason, const std::string& words) {
    return words.empty() ? reason + '.' : reason + ": " + words;
}

// TLS libraries have no common code for a certificate that is for another name.
bool isForOtherName(const std::string& words) {
    return contains(words, "match") || contains(words, "WRONG_PRINCIPAL");
}

std::string certificateFailure(const MailOutcome& outcome, const SmtpMessage& message) {
    if (isForOtherName(outcome.words)) {
        return withWords("The certificate of the server is not for \"" + message.server + '"',
                         outcome.words);
    }
    return withWords("The certificate of the server is not trusted", outcome.words);
}

// The library's own words for one of its codes.
std::string wordsOf(int result) {
    const CurlCalls* const curl = curlCalls();
    return curl ? curl->easyStrerror(static_cast<CURLcode>(result)) : std::string();
}

std::string placeOf(const SmtpMessage& message) {
    return '"' + message.server + "\", port " + std::to_string(message.port);
}

}  // namespace

void ServerReplies::add(std::string_view line) {
    while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
    if (line.starts_with("221")) return;
    refusal_.clear();
    if (!line.starts_with('4') && !line.starts_with('5')) return;
    // Control characters have no place in a message box.
    refusal_ = line.substr(0, longestReply);
    std::replace_if(
        refusal_.begin(), refusal_.end(),
        [](char letter) { return static_cast<unsigned char>(letter) < ' '; }, ' ');
}

std::string failureInWords(const MailOutcome& outcome, const SmtpMessage& message) {
    const std::string& refusal = outcome.replies.refusal();
    switch (outcome.result) {
        case CURLE_OK:
            return {};
        case CURLE_COULDNT_RESOLVE_HOST:
            return "There is no mail server with the name \"" + message.server + "\".";
        case CURLE_COULDNT_CONNECT:
            return withWords("The mail server can't be reached at " + placeOf(message),
                             outcome.words);
        case CURLE_OPERATION_TIMEDOUT:
            return "The mail server did not finish within 60 seconds.";
        case CURLE_LOGIN_DENIED:
            return withWords("The mail server refuses the user name or the password", refusal);
        case CURLE_USE_SSL_FAILED:
            return withWords("The mail server offers no encryption with STARTTLS", refusal);
        case CURLE_PEER_FAILED_VERIFICATION:
            return certificateFailure(outcome, message);
        case CURLE_SSL_CONNECT_ERROR:
            return withWords("No encrypted connection to " + placeOf(message), outcome.words);
        case CURLE_SSL_CACERT_BADFILE:
            return withWords("The file of trusted certificates can't be read", outcome.words);
        case CURLE_SEND_ERROR:
        case CURLE_RECV_ERROR:
        case CURLE_GOT_NOTHING:
            if (refusal.empty()) return "The mail server has ended the connection.";
            break;
        default:
            break;
    }
    if (!refusal.empty()) return "The mail server refuses the message: " + refusal;
    return withWords("The message could not be sent",
                     outcome.words.empty() ? wordsOf(outcome.result) : outcome.words);
}

}  // namespace velmora::network
