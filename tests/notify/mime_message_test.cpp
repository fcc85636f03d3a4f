// Messages, byte by byte. Texts in Base64 are read back by the test's own decoder.
#include "notify/mime_message.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "base/text.h"

namespace velmora::tests {
namespace {

// 2026-03-14 09:24:26 UTC, in units of 100 ns since 1601.
constexpr std::uint64_t morning = 134'179'538'660'000'000;
constexpr std::uint64_t hour = 36'000'000'000;

MimeSource source() {
    return {.displayName = "Velmora",
            .sender = "me@example.org",
            .recipient = "you@example.com",
            .subject = "Space",
            .body = "Hello",
            .local = {2026, 3, 14, 9, 24, 26},
            .system = morning};
}

std::string headOf(const std::string& message) {
    return message.substr(0, message.find("\r\n\r\n") + lineEnd.size());
}

std::string encodedBodyOf(const std::string& message) {
    return message.substr(message.find("\r\n\r\n") + 2 * lineEnd.size());
}

// One header with its further lines, without the last line end.
std::string header(const std::string& message, const std::string& name) {
    const std::string head = "\r\n" + headOf(message);
    const std::size_t at = head.find("\r\n" + name + ": ");
    if (at == std::string::npos) return "none";
    std::size_t end = head.find(lineEnd, at + 2);
    while (end + 2 < head.size() && head[end + 2] == ' ') end = head.find(lineEnd, end + 2);
    return head.substr(at + 2, end - at - 2);
}

std::string decoded(const std::string& text) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    std::uint32_t bits = 0;
    int count = 0;
    for (const char letter : text) {
        const std::size_t digit = digits.find(letter);
        if (digit == std::string_view::npos) continue;
        bits = bits << 6 | static_cast<std::uint32_t>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>(bits >> count & 0xFFU);
    }
    return bytes;
}

std::string bodyFor(const std::string& text, bool isHtml = false) {
    MimeSource given = source();
    given.body = text;
    given.isHtml = isHtml;
    return decoded(encodedBodyOf(mimeMessage(given)));
}

std::string subjectFor(const std::string& subject) {
    MimeSource given = source();
    given.subject = subject;
    return header(mimeMessage(given), "Subject");
}

std::string fromFor(const std::string& name) {
    MimeSource given = source();
    given.displayName = name;
    return header(mimeMessage(given), "From");
}

// What the encoded words of a header say, one after another.
std::string said(const std::string& text) {
    const std::regex word("=\\?UTF-8\\?B\\?([A-Za-z0-9+/=]*)\\?=");
    std::string all;
    for (std::sregex_iterator at(text.begin(), text.end(), word), end; at != end; ++at) {
        all += decoded((*at)[1]);
    }
    return all;
}

void expectLinesWithinLimits(const MimeSource& given) {
    for (const std::string& line : split(mimeMessage(given), lineEnd)) {
        EXPECT_LE(line.size(), contains(line, "=?UTF-8?B?") ? 76u : 998u) << line;
    }
}

std::string aees(std::size_t count) {
    std::string text;
    while (count-- > 0) text += "\xC3\xA4";
    return text;
}

TEST(MimeMessage, IsWholeToTheLastByte) {
    const std::regex recipientsNumber("(Message-ID: <[0-9]+\\.)[0-9]+@");
    EXPECT_EQ(std::regex_replace(mimeMessage(source()), recipientsNumber, "$1N@"),
              "Date: Sat, 14 Mar 2026 09:24:26 +0000\r\n"
              "From: \"Velmora\" <me@example.org>\r\n"
              "To: <you@example.com>\r\n"
              "Subject: Space\r\n"
              "Message-ID: <134179538660000000.N@example.org>\r\n"
              "MIME-Version: 1.0\r\n"
              "Content-Type: text/plain; charset=utf-8\r\n"
              "Content-Transfer-Encoding: base64\r\n"
              "\r\n"
              "SGVsbG8=\r\n");
}

TEST(MimeMessage, TheDateHasTheZone) {
    MimeSource given = source();
    given.local = {2026, 3, 14, 15, 9, 26};
    EXPECT_EQ(header(mimeMessage(given), "Date"), "Date: Sat, 14 Mar 2026 15:09:26 +0545");
    given.local = {2026, 3, 14, 5, 54, 26};
    EXPECT_EQ(header(mimeMessage(given), "Date"), "Date: Sat, 14 Mar 2026 05:54:26 -0330");
    // The next day there already.
    given.local = {2026, 3, 15, 0, 9, 26};
    given.system = morning + 9 * hour;
    EXPECT_EQ(header(mimeMessage(given), "Date"), "Date: Sun, 15 Mar 2026 00:09:26 +0545");
    // A second passed between the two readings.
    given.local = {2026, 3, 14, 18, 24, 25};
    EXPECT_EQ(header(mimeMessage(given), "Date"), "Date: Sat, 14 Mar 2026 18:24:25 +0000");
}

TEST(MimeMessage, TheMessagesNameHasTheSendersDomain) {
    MimeSource given = source();
    const auto domain = [&](const std::string& sender) {
        given.sender = sender;
        const std::string name = header(mimeMessage(given), "Message-ID");
        return name.substr(name.find('@'));
    };
    EXPECT_EQ(domain("me@example.org"), "@example.org>");
    EXPECT_EQ(domain(" <me@mail.example.net> "), "@mail.example.net>");
    EXPECT_EQ(domain("\"a@b\"@example.org"), "@example.org>");
    EXPECT_EQ(domain("me"), "@localhost>");
    EXPECT_EQ(domain("me@"), "@localhost>");
}

TEST(MimeMessage, EachRecipientsMessageHasANameOfItsOwn) {
    MimeSource given = source();
    const std::string first = header(mimeMessage(given), "Message-ID");
    given.recipient = "other@example.com";
    EXPECT_NE(header(mimeMessage(given), "Message-ID"), first);
}

TEST(MimeMessage, ANameIsQuoted) {
    EXPECT_EQ(fromFor(""), "From: \"\" <me@example.org>");
    EXPECT_EQ(fromFor("a \"b\" c\\d"), "From: \"a \\\"b\\\" c\\\\d\" <me@example.org>");
    EXPECT_EQ(fromFor("x, <y@z>"), "From: \"x, <y@z>\" <me@example.org>");
}

TEST(MimeMessage, ANameOutsideAsciiIsEncodedAndTheAddressFollowsOnALineOfItsOwn) {
    EXPECT_EQ(fromFor("\xC3\xA4"), "From: =?UTF-8?B?w6Q=?=\r\n <me@example.org>");
    EXPECT_EQ(fromFor("=?x"), "From: =?UTF-8?B?PT94?=\r\n <me@example.org>");
}

TEST(MimeMessage, ALongNameIsEncoded) {
    const std::string longest(900, 'n');
    EXPECT_TRUE(fromFor(longest).starts_with("From: \"" + longest + "\""));
    const std::string from = fromFor(longest + 'n');
    EXPECT_EQ(said(from), longest + 'n');
    EXPECT_TRUE(from.ends_with("?=\r\n <me@example.org>")) << from;
    // Quoting makes two of each of these: 6 for the header's name, 2 for the quotes, 990.
    const std::string quotes(495, '"');
    EXPECT_TRUE(fromFor(quotes).starts_with("From: \"\\\""));
    EXPECT_EQ(said(fromFor(quotes + 'n')), quotes + 'n');
}

TEST(MimeMessage, ASubjectIsEncodedWhenItHasTo) {
    EXPECT_EQ(subjectFor(""), "Subject: ");
    EXPECT_EQ(subjectFor("a \"b\" <c>"), "Subject: a \"b\" <c>");
    EXPECT_EQ(subjectFor("=?"), "Subject: =?UTF-8?B?PT8=?=");
    EXPECT_EQ(subjectFor("a\tb"), "Subject: =?UTF-8?B?YQli?=");
    EXPECT_EQ(subjectFor(std::string(900, 's')), "Subject: " + std::string(900, 's'));
    EXPECT_EQ(said(subjectFor(std::string(901, 's'))), std::string(901, 's'));
}

TEST(MimeMessage, AWordEndsBetweenCharacters) {
    std::string twelve;
    for (int i = 0; i < 12; ++i) twelve += "YWFh";
    // 37 letters and the two bytes of the last one just fit.
    EXPECT_EQ(subjectFor(std::string(37, 'a') + "\xC3\xA4"),
              "Subject: =?UTF-8?B?" + twelve + "YcOk?=");
    EXPECT_EQ(subjectFor(std::string(38, 'a') + "\xC3\xA4"),
              "Subject: =?UTF-8?B?" + twelve + "YWE=?=\r\n =?UTF-8?B?w6Q=?=");
}

TEST(MimeMessage, AHeaderThatIsNoUtf8IsReadAsWindows1252) {
    EXPECT_EQ(subjectFor("\xE4"), "Subject: =?UTF-8?B?w6Q=?=");
    EXPECT_EQ(fromFor("\xE4"), "From: =?UTF-8?B?w6Q=?=\r\n <me@example.org>");
}

TEST(MimeMessage, NoLineIsLongerThanAllowed) {
    const std::string address = std::string(64, 'l') + "@" + std::string(189, 'd');
    for (const std::string& text :
         {aees(19), aees(20), aees(300), aees(2000), std::string(899, 'x'), std::string(900, 'x'),
          std::string(901, 'x'), std::string(480, '\\'), std::string(495, '"'),
          std::string(496, '"'), std::string(900, '"'), std::string("=?UTF-8?B?w6Q=?=")}) {
        MimeSource given = source();
        given.displayName = given.subject = given.body = text;
        expectLinesWithinLimits(given);
        given.sender = given.recipient = address;
        expectLinesWithinLimits(given);
    }
}

TEST(MimeMessage, LineEndsInHeadersAreRefused) {
    for (std::string MimeSource::*field : {&MimeSource::displayName, &MimeSource::sender,
                                           &MimeSource::recipient, &MimeSource::subject}) {
        for (const char* end : {"\r", "\n", "\r\n", "\r\nBcc: x@example.com"}) {
            MimeSource given = source();
            given.*field += end;
            EXPECT_EQ(errorOf([&] { mimeMessage(given); }), error::invalidCall);
        }
    }
}

TEST(MimeMessage, AnAddressLosesBlanksAndOnePairOfBrackets) {
    MimeSource given = source();
    given.sender = "  <me@example.org> ";
    given.recipient = "<you@example.com>";
    EXPECT_EQ(header(mimeMessage(given), "From"), "From: \"Velmora\" <me@example.org>");
    EXPECT_EQ(header(mimeMessage(given), "To"), "To: <you@example.com>");
}

TEST(MimeMessage, WhatIsNoAddressIsRefused) {
    for (std::string MimeSource::*field : {&MimeSource::sender, &MimeSource::recipient}) {
        for (const std::string& address :
             {std::string(), std::string("  "), std::string("<>"), std::string("\xC3\xA4@x.org"),
              std::string("\xE4@x.org"), std::string("a b@x.org"), std::string("<a@x.org >"),
              std::string("<<a@x.org>>"), std::string("a<@x.org"), std::string("a@x.org>"),
              std::string("Me <a@x.org>"), std::string("a@x.org,b@x.org"), std::string("a\t@x.org"),
              std::string("a\0@x.org", 8), std::string("a\x7F@x.org"), std::string(255, 'a')}) {
            MimeSource given = source();
            given.*field = address;
            EXPECT_EQ(errorOf([&] { mimeMessage(given); }), error::invalidCall) << address;
        }
    }
}

TEST(MimeMessage, ARefusedAddressIsNamedInWords) {
    MimeSource given = source();
    const auto reason = [&] {
        try {
            mimeMessage(given);
        } catch (const RuntimeError& refusal) {
            return refusal.description();
        }
        return std::string();
    };
    given.recipient = "a b@example.org";
    EXPECT_TRUE(contains(reason(), "recipient") && contains(reason(), "blank")) << reason();
    given.recipient = std::string(255, 'a');
    EXPECT_EQ(reason(), "the recipient's address is too long");
    given.sender = "";
    EXPECT_EQ(reason(), "the sender's address is empty");
}

TEST(MimeMessage, ALineOfSendersNameAndAddressHas998BytesAtMost) {
    MimeSource given = source();
    given.displayName = std::string(890, 'n');
    const auto foldsAt = [&](std::size_t addressSize) {
        given.sender = std::string(addressSize - 2, 'a') + "@b";
        return contains(mimeMessage(given), "n\"\r\n <a");
    };
    // Beside the address: 6 for the header's name, 892 in quotes, a blank, 2 for < and >.
    EXPECT_FALSE(foldsAt(97));
    EXPECT_TRUE(foldsAt(98));
}

TEST(MimeMessage, TheBodyHasLinesOf57Bytes) {
    std::string full;
    for (int i = 0; i < 19; ++i) full += "YWFh";
    MimeSource given = source();
    const auto encoded = [&](std::size_t size) {
        given.body = std::string(size, 'a');
        return encodedBodyOf(mimeMessage(given));
    };
    EXPECT_EQ(encoded(0), "");
    EXPECT_EQ(encoded(57), full + "\r\n");
    EXPECT_EQ(encoded(58), full + "\r\nYQ==\r\n");
}

TEST(MimeMessage, TheBodysLineEndsAreCrLf) {
    EXPECT_EQ(bodyFor("a\rb\nc\r\nd"), "a\r\nb\r\nc\r\nd");
    EXPECT_EQ(bodyFor("\n\r"), "\r\n\r\n");
    EXPECT_EQ(bodyFor("a\r\r\n"), "a\r\n\r\n");
    EXPECT_EQ(bodyFor("a\r\n"), "a\r\n");
    EXPECT_EQ(bodyFor("a"), "a");
}

TEST(MimeMessage, ALineOfTheBodyThatIsNoUtf8IsReadAsWindows1252) {
    EXPECT_EQ(bodyFor("\xC3\xA4\r\n\xE4 \x80\r\n\xC3\xA4"),
              "\xC3\xA4\r\n\xC3\xA4 \xE2\x82\xAC\r\n\xC3\xA4");
    // Half a character before a line end.
    EXPECT_EQ(bodyFor("\xC3\n\xA4"), "\xC3\x83\r\n\xC2\xA4");
}

TEST(MimeMessage, APageShowsTheTextAsItIs) {
    EXPECT_EQ(bodyFor("a<b> &amp; \"c\"\r\nd\re\nf \xE4", true),
              "<html><body>a&lt;b&gt; &amp;amp; \"c\"<br>\r\nd<br>\r\ne<br>\r\nf \xC3\xA4"
              "</body></html>");
    MimeSource given = source();
    given.isHtml = true;
    EXPECT_EQ(header(mimeMessage(given), "Content-Type"), "Content-Type: text/html; charset=utf-8");
}

}  // namespace
}  // namespace velmora::tests
