#include "platform/windows/network/windows_internet.h"

#include <windows.h>
// After it, as it needs its types.
#include <wininet.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/network/web_address.h"
#include "platform/windows/drives/drive_questions.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

using Clock = std::chrono::steady_clock;

class UniqueInternet {
  public:
    explicit UniqueInternet(HINTERNET handle) : handle_(handle) {}
    ~UniqueInternet() {
        if (handle_) InternetCloseHandle(handle_);
    }
    UniqueInternet(const UniqueInternet&) = delete;
    UniqueInternet& operator=(const UniqueInternet&) = delete;
    HINTERNET get() const { return handle_; }

  private:
    HINTERNET handle_;
};

void limitTimes(HINTERNET session) {
    auto limit = static_cast<DWORD>(network::pageLimit.count());
    for (const DWORD option : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                               INTERNET_OPTION_RECEIVE_TIMEOUT}) {
        InternetSetOptionW(session, option, &limit, sizeof limit);
    }
}

HINTERNET openPage(HINTERNET session, const std::string& url) {
    // The system would follow a redirection wherever it leads.
    constexpr DWORD flags = INTERNET_FLAG_NO_AUTO_REDIRECT | INTERNET_FLAG_RELOAD |
                            INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_COOKIES |
                            INTERNET_FLAG_NO_UI;
    return InternetOpenUrlW(session, toUtf16(url).c_str(), nullptr, 0, flags, 0);
}

// A number of the answer's head; 0 when it has none of that kind.
DWORD numberOf(HINTERNET page, DWORD kind) {
    DWORD number = 0;
    DWORD size = sizeof number;
    HttpQueryInfoW(page, kind | HTTP_QUERY_FLAG_NUMBER, &number, &size, nullptr);
    return number;
}

bool isRedirection(DWORD answer) {
    return answer == 301 || answer == 302 || answer == 303 || answer == 307 || answer == 308;
}

// The address that a redirection leads to; empty when it names none.
std::string targetOf(HINTERNET page, const std::string& url) {
    constexpr DWORD longest = 4096;
    std::wstring place(longest, L'\0');
    DWORD size = longest * sizeof(wchar_t);
    if (!HttpQueryInfoW(page, HTTP_QUERY_LOCATION, place.data(), &size, nullptr)) return {};
    std::wstring target(longest, L'\0');
    DWORD length = longest;
    if (!InternetCombineUrlW(toUtf16(url).c_str(), place.c_str(), target.data(), &length, 0)) {
        return {};
    }
    target.resize(length);
    return toUtf8(target);
}

// Empty unless all that is wanted of it came in time.
std::string read(HINTERNET page, Clock::time_point end) {
    std::string text;
    while (text.size() < network::greatestPage) {
        // Reading more than is there would wait until it is.
        DWORD available = 0;
        if (!InternetQueryDataAvailable(page, &available, 0, 0) || Clock::now() > end) return {};
        if (available == 0) break;
        const std::size_t before = text.size();
        const std::size_t count = std::min<std::size_t>(available, network::greatestPage - before);
        text.resize(before + count);
        DWORD taken = 0;
        if (!InternetReadFile(page, text.data() + before, static_cast<DWORD>(count), &taken)) {
            return {};
        }
        text.resize(before + taken);
        if (taken == 0) break;
    }
    // A connection that breaks off ends the reading like the end of the page.
    const std::size_t announced = numberOf(page, HTTP_QUERY_CONTENT_LENGTH);
    return text.size() < std::min(announced, network::greatestPage) ? "" : text;
}

std::string fetch(std::string url, Clock::time_point end) {
    const UniqueInternet session(InternetOpenW(toUtf16(network::userAgent).c_str(),
                                               INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
    if (!session.get()) return {};
    limitTimes(session.get());
    for (long redirections = 0; redirections <= network::mostRedirections; ++redirections) {
        if (!network::isWebAddress(url) || Clock::now() > end) return {};
        const UniqueInternet page(openPage(session.get(), url));
        if (!page.get()) return {};
        const DWORD answer = numberOf(page.get(), HTTP_QUERY_STATUS_CODE);
        if (answer >= 200 && answer < 300) return read(page.get(), end);
        if (!isRedirection(answer)) return {};
        url = targetOf(page.get(), url);
    }
    return {};
}

}  // namespace

std::string WindowsInternet::OpenURL(const std::string& url) {
    if (!network::isWebAddress(url)) return {};
    // A server is like a drive that may never answer.
    DriveQuestions questions(network::pageLimit);
    const auto end = Clock::now() + network::pageLimit;
    return questions.ask<std::string>(url, [url, end] { return fetch(url, end); }).value_or("");
}

}  // namespace velmora::windows
