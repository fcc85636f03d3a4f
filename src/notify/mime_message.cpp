#include "notify/mime_message.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

namespace {

constexpr std::size_t lineBytes = 57;  // 76 characters of base64
// An encoded word of 64 characters: with "Subject: " before it, the line has at most 76.
constexpr std::size_t wordBytes = 39;
constexpr std::size_t longestPlain = 900;    // of a text that is not encoded
constexpr std::size_t longestLine = 998;     // without its end
constexpr std::size_t longestAddress = 254;  // what servers take
constexpr std::string_view fold = "\r\n ";

std::string base64(std::string_view bytes) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t given = std::min<std::size_t>(3, bytes.size() - at);
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            group = group << 8 | (i < given ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            text += i <= given ? digits[group >> (18 - 6 * i) & 63U] : '=';
        }
    }
    return text;
}

std::string inLines(std::string_view bytes) {
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += lineBytes) {
        text += base64(bytes.substr(at, lineBytes));
        text += lineEnd;
    }
    return text;
}

bool isPlain(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

// Texts of older files are in Windows-1252.
std::string asUtf8(const std::string& text) {
    return isValidUtf8(text) ? text : fromWindows1252(text);
}

// Whether it stays as it is in a header. What could be taken for an encoded word doesn't.
bool staysPlain(const std::string& text) {
    return isPlain(text) && text.size() <= longestPlain && !contains(text, "=?");
}

// As encoded words, split between characters.
std::string encodedWords(const std::string& given) {
    const std::string text = asUtf8(given);
    std::string words;
    std::string piece;
    const auto close = [&] {
        if (piece.empty()) return;
        if (!words.empty()) words += fold;
        words += "=?UTF-8?B?" + base64(piece) + "?=";
        piece.clear();
    };
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = characterSize(text, at);
        if (piece.size() + size > wordBytes) close();
        piece += text.substr(at, size);
        at += size;
    }
    close();
    return words;
}

std::string headerText(const std::string& text) {
    return staysPlain(text) ? text : encodedWords(text);
}

std::string quoted(const std::string& name) {
    std::string text = "\"";
    for (const char c : name) {
        if (c == '"' || c == '\\') text += '\\';
        text += c;
    }
    return text + '"';
}

// The address stands on a line of its own when the limit of the name's line asks for it.
std::string fromHeader(const MimeSource& source) {
    const std::string address = "<" + bareAddress(source.sender) + ">";
    const std::string plain = "From: " + quoted(source.displayName);
    if (!staysPlain(source.displayName) || plain.size() > longestLine) {
        return "From: " + encodedWords(source.displayName) + std::string(fold) + address;
    }
    const bool fits = plain.size() + 1 + address.size() <= longestLine;
    return plain + (fits ? " " : std::string(fold)) + address;
}

// With CR LF as its only line ends, and each line in UTF-8.
std::string bodyText(const std::string& body) {
    const std::string ends = replaceAll(replaceAll(body, lineEnd, "\n"), "\r", "\n");
    std::string text;
    for (const std::string& line : split(ends, "\n")) {
        text += asUtf8(line);
        text += lineEnd;
    }
    text.resize(text.size() - lineEnd.size());
    return text;
}

std::string escaped(const std::string& text) {
    std::string page = replaceAll(text, "&", "&amp;");
    page = replaceAll(page, "<", "&lt;");
    page = replaceAll(page, ">", "&gt;");
    return replaceAll(page, lineEnd, "<br>\r\n");
}

// Seconds between local time and UTC, to the quarter of an hour in which zones count.
std::int64_t zoneSeconds(const MimeSource& source) {
    constexpr std::int64_t quarter = 15 * 60;
    constexpr std::uint64_t perSecond = 10'000'000;
    const std::int64_t utc =
        static_cast<std::int64_t>(source.system / perSecond) + toSeconds({1601, 1, 1, 0, 0, 0});
    const std::int64_t ahead = toSeconds(source.local) - utc;
    return (ahead + (ahead < 0 ? -quarter / 2 : quarter / 2)) / quarter * quarter;
}

std::string twoDigits(std::int64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string dateHeader(const MimeSource& source) {
    const std::int64_t zone = zoneSeconds(source);
    const std::int64_t minutes = std::abs(zone) / 60;
    return Format(source.local, "Ddd, dd Mmm yyyy hh:nn:ss ") + (zone < 0 ? "-" : "+") +
           twoDigits(minutes / 60) + twoDigits(minutes % 60);
}

std::string messageId(const MimeSource& source) {
    const std::string sender = bareAddress(source.sender);
    const std::size_t at = sender.rfind('@');
    std::string domain = at == std::string::npos ? "" : sender.substr(at + 1);
    if (domain.empty()) domain = "localhost";
    const std::size_t recipient = std::hash<std::string>{}(source.recipient);
    return "<" + std::to_string(source.system) + "." + std::to_string(recipient) + "@" + domain +
           ">";
}

void refuse(const std::string& reason) {
    throw RuntimeError(error::invalidCall, reason);
}

void refuseLineEnds(const MimeSource& source) {
    for (const std::string* text :
         {&source.displayName, &source.sender, &source.recipient, &source.subject}) {
        if (text->find_first_of("\r\n") == std::string::npos) continue;
        refuse("a line end in the subject, the display name or an address");
    }
}

// A header and a server's command hold an address as it is, so it must not end early there.
void checkAddress(const std::string& whose, const std::string& given) {
    const std::string address = bareAddress(given);
    if (address.empty()) refuse("the " + whose + "'s address is empty");
    if (address.size() > longestAddress) refuse("the " + whose + "'s address is too long");
    if (isPlain(address) && address.find_first_of(" <>,") == std::string::npos) return;
    refuse("the " + whose +
           "'s address has a letter outside ASCII, a blank, an angle bracket or a comma");
}

}  // namespace

std::string bareAddress(const std::string& address) {
    std::string bare = trim(address);
    if (bare.starts_with('<') && bare.ends_with('>')) bare = bare.substr(1, bare.size() - 2);
    return bare;
}

std::string mimeMessage(const MimeSource& source) {
    refuseLineEnds(source);
    checkAddress("sender", source.sender);
    checkAddress("recipient", source.recipient);
    const std::string end(lineEnd);
    const std::string body = bodyText(source.body);
    return "Date: " + dateHeader(source) + end +                  //
           fromHeader(source) + end +                             //
           "To: <" + bareAddress(source.recipient) + ">" + end +  //
           "Subject: " + headerText(source.subject) + end +       //
           "Message-ID: " + messageId(source) + end +             //
           "MIME-Version: 1.0" + end +                            //
           "Content-Type: text/" + (source.isHtml ? "html" : "plain") + "; charset=utf-8" + end +
           "Content-Transfer-Encoding: base64" + end + end +
           inLines(source.isHtml ? "<html><body>" + escaped(body) + "</body></html>" : body);
}

}  // namespace velmora
