#include "platform/linux/network/linux_internet.h"

#include <algorithm>
#include <memory>

#include "platform/network/curl_calls.h"
#include "platform/network/web_address.h"

namespace velmora::linuxhost {

namespace {

using network::CurlCalls;
using PageTransfer = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;

// Taking less than it was given ends the transfer.
std::size_t takePage(const char* bytes, std::size_t /*one*/, std::size_t count, void* target) {
    auto& page = *static_cast<std::string*>(target);
    const std::size_t taken = std::min(count, network::greatestPage - page.size());
    page.append(bytes, taken);
    return taken;
}

bool preparePage(const CurlCalls& curl, CURL* transfer, const std::string& url,
                 std::chrono::milliseconds limit, std::string& page) {
    constexpr const char* protocols = "http,https";
    const auto set = [&curl, transfer](CURLoption option, auto value) {
        return curl.easySetopt(transfer, option, value) == CURLE_OK;
    };
    return set(CURLOPT_URL, url.c_str()) && set(CURLOPT_PROTOCOLS_STR, protocols) &&
           set(CURLOPT_REDIR_PROTOCOLS_STR, protocols) && set(CURLOPT_FOLLOWLOCATION, 1L) &&
           set(CURLOPT_MAXREDIRS, network::mostRedirections) &&
           set(CURLOPT_TIMEOUT_MS, static_cast<long>(limit.count())) &&
           // Neither signals nor waiting for the thread that asks a name server which is silent.
           set(CURLOPT_NOSIGNAL, 1L) && set(CURLOPT_QUICK_EXIT, 1L) &&
           set(CURLOPT_USERAGENT, network::userAgent) && set(CURLOPT_WRITEFUNCTION, takePage) &&
           set(CURLOPT_WRITEDATA, &page);
}

bool gotPage(const CurlCalls& curl, CURL* transfer) {
    long answer = 0;
    curl.easyGetinfo(transfer, CURLINFO_RESPONSE_CODE, &answer);
    return answer >= 200 && answer < 300;
}

}  // namespace

std::string LinuxInternet::OpenURL(const std::string& url) {
    if (!network::isWebAddress(url)) return {};
    const CurlCalls* const curl = network::curlCalls();
    if (!curl) return {};
    const PageTransfer transfer(curl->easyInit(), curl->easyCleanup);
    std::string page;
    if (!transfer || !preparePage(*curl, transfer.get(), url, limit_, page)) return {};
    const CURLcode result = curl->easyPerform(transfer.get());
    const bool isWhole =
        result == CURLE_OK || (result == CURLE_WRITE_ERROR && page.size() == network::greatestPage);
    return isWhole && gotPage(*curl, transfer.get()) ? page : "";
}

}  // namespace velmora::linuxhost
