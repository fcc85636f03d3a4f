#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <string>

#include "loopback_server.h"
#include "platform/platform.h"
#include "web_server.h"

namespace velmora::network {
namespace {

constexpr std::size_t megabyte = 1 << 20;

class InternetTransferTest : public testing::Test {
  protected:
    std::string open(const std::string& url) { return machine_->platform().internet.OpenURL(url); }
    /// What comes from a server that has one answer.
    std::string openAnswer(const std::string& answer) {
        WebServer server([&](const std::string&) { return answer; });
        return open(server.address());
    }

    std::unique_ptr<Machine> machine_ = openMachine();
};

TEST_F(InternetTransferTest, GivesThePage) {
    const std::string page("<html>\0 \xE4\xF6\r\n</html>", 19);
    EXPECT_EQ(openAnswer(httpAnswer("200 OK", page)), page);
    EXPECT_EQ(openAnswer(httpAnswer("206 Partial Content", "part")), "part");
}

TEST_F(InternetTransferTest, AsksForThePathAsItIs) {
    std::string asked;
    WebServer server([&](const std::string& path) {
        asked = path;
        return httpAnswer("200 OK", "x");
    });
    EXPECT_EQ(open(server.address("/status.htm?a=b&c=d%20e")), "x");
    EXPECT_EQ(asked, "/status.htm?a=b&c=d%20e");
}

TEST_F(InternetTransferTest, AnEmptyPageIsEmpty) {
    EXPECT_EQ(openAnswer(httpAnswer("200 OK", "")), "");
    EXPECT_EQ(openAnswer(httpAnswer("204 No Content", "")), "");
}

TEST_F(InternetTransferTest, OnlyASuccessGivesThePage) {
    for (const char* code : {"404 Not Found", "403 Forbidden", "500 Internal Server Error",
                             "300 Multiple Choices", "400 Bad Request", "503 Busy"}) {
        EXPECT_EQ(openAnswer(httpAnswer(code, "<html>sorry</html>")), "") << code;
    }
}

TEST_F(InternetTransferTest, AServerThatSpeaksOtherwiseGivesNothing) {
    EXPECT_EQ(openAnswer(""), "");
    EXPECT_EQ(openAnswer("220 mail.example ready\r\n"), "");
    EXPECT_EQ(openAnswer("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\ncut short"), "");
    EXPECT_EQ(open("http://127.0.0.1:" + std::to_string(deafPort()) + "/"), "");
}

TEST_F(InternetTransferTest, RedirectionsAreFollowed) {
    WebServer target([](const std::string& path) { return httpAnswer("200 OK", "at " + path); });
    WebServer server([&](const std::string& path) {
        if (path == "/far") {
            return httpAnswer("301 Moved", "", "Location: " + target.address("/new") + "\r\n");
        }
        if (path == "/near") return httpAnswer("302 Found", "", "Location: here?a=b\r\n");
        return httpAnswer("200 OK", "at " + path);
    });
    EXPECT_EQ(open(server.address("/far")), "at /new");
    EXPECT_EQ(open(server.address("/near")), "at /here?a=b");
}

TEST_F(InternetTransferTest, TenRedirectionsAreFollowedAndNoMore) {
    WebServer server([&](const std::string& path) {
        const int left = std::stoi(path.substr(1));
        if (left == 0) return httpAnswer("200 OK", "arrived");
        return httpAnswer("302 Found", "", "Location: /" + std::to_string(left - 1) + "\r\n");
    });
    EXPECT_EQ(open(server.address("/10")), "arrived");
    EXPECT_EQ(open(server.address("/11")), "");
}

TEST_F(InternetTransferTest, RedirectionsLeadToWebPagesOnly) {
    // A file that is there on the one or the other system.
    for (const char* place : {"file:///etc/passwd", "file:///C:/windows/win.ini",
                              "ftp://127.0.0.1/", "javascript:alert(1)", ""}) {
        EXPECT_EQ(
            openAnswer(httpAnswer("302 Found", "", std::string("Location: ") + place + "\r\n")), "")
            << place;
    }
    EXPECT_EQ(openAnswer(httpAnswer("302 Found", "no place")), "");
}

TEST_F(InternetTransferTest, APageEndsAfterAMegabyte) {
    const std::string page = std::string(megabyte, 'a') + std::string(megabyte, 'b');
    const std::string got = openAnswer(httpAnswer("200 OK", page));
    EXPECT_EQ(got.size(), megabyte);
    EXPECT_TRUE(got == page.substr(0, megabyte));
    const std::string exact(megabyte, 'c');
    EXPECT_TRUE(openAnswer(httpAnswer("200 OK", exact)) == exact);
}

TEST_F(InternetTransferTest, AddressesWithControlCharactersAreNone) {
    WebServer server([](const std::string&) { return httpAnswer("200 OK", "x"); });
    for (const std::string& end : {std::string("\r\nHost: other"), std::string("a b"),
                                   std::string("\0", 1), std::string("\n")}) {
        EXPECT_EQ(open(server.address("/" + end)), "");
    }
    EXPECT_EQ(server.connections(), 0);
}

}  // namespace
}  // namespace velmora::network
