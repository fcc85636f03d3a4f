#include "platform/network/curl_calls.h"

#include <mutex>

namespace velmora::network {

namespace {

// Linked with the program.
constexpr CurlCalls linked{.globalInit = curl_global_init,
                           .slistAppend = curl_slist_append,
                           .slistFreeAll = curl_slist_free_all,
                           .easyInit = curl_easy_init,
                           .easyCleanup = curl_easy_cleanup,
                           .easySetopt = curl_easy_setopt,
                           .easyPerform = curl_easy_perform,
                           .easyGetinfo = curl_easy_getinfo,
                           .easyStrerror = curl_easy_strerror,
                           .multiInit = curl_multi_init,
                           .multiCleanup = curl_multi_cleanup,
                           .multiAddHandle = curl_multi_add_handle,
                           .multiRemoveHandle = curl_multi_remove_handle,
                           .multiPerform = curl_multi_perform,
                           .multiPoll = curl_multi_poll,
                           .multiWakeup = curl_multi_wakeup,
                           .multiInfoRead = curl_multi_info_read};

}  // namespace

const CurlCalls* curlCalls() {
    static std::mutex mutex;
    static bool isPrepared = false;
    const std::lock_guard lock(mutex);
    if (!isPrepared) isPrepared = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return isPrepared ? &linked : nullptr;
}

}  // namespace velmora::network
