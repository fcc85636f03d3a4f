#include "platform/network/curl_calls.h"

#include <mutex>

#include "platform/linux/system/loaded_library.h"

namespace velmora::network {

namespace {

bool findAll(linuxhost::LoadedLibrary& library, CurlCalls& calls) {
    library.find("curl_global_init", calls.globalInit);
    library.find("curl_slist_append", calls.slistAppend);
    library.find("curl_slist_free_all", calls.slistFreeAll);
    library.find("curl_easy_init", calls.easyInit);
    library.find("curl_easy_cleanup", calls.easyCleanup);
    library.find("curl_easy_setopt", calls.easySetopt);
    library.find("curl_easy_perform", calls.easyPerform);
    library.find("curl_easy_getinfo", calls.easyGetinfo);
    library.find("curl_easy_strerror", calls.easyStrerror);
    library.find("curl_multi_init", calls.multiInit);
    library.find("curl_multi_cleanup", calls.multiCleanup);
    library.find("curl_multi_add_handle", calls.multiAddHandle);
    library.find("curl_multi_remove_handle", calls.multiRemoveHandle);
    library.find("curl_multi_perform", calls.multiPerform);
    library.find("curl_multi_poll", calls.multiPoll);
    library.find("curl_multi_wakeup", calls.multiWakeup);
    library.find("curl_multi_info_read", calls.multiInfoRead);
    return library.isWhole();
}

}  // namespace

const CurlCalls* curlCalls() {
    static std::mutex mutex;
    static CurlCalls calls{};
    static bool isPrepared = false;
    const std::lock_guard lock(mutex);
    if (!isPrepared) {
        linuxhost::LoadedLibrary library(VELMORA_CURL_LIBRARY);
        isPrepared = findAll(library, calls) && calls.globalInit(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    }
    return isPrepared ? &calls : nullptr;
}

}  // namespace velmora::network
