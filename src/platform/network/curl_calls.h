// The functions of libcurl that are called here.
#pragma once

#include <curl/curl.h>

namespace velmora::network {

/// Each has the name and the manner of the library's function without "curl_".
struct CurlCalls {
    decltype(&curl_global_init) globalInit;
    decltype(&curl_slist_append) slistAppend;
    decltype(&curl_slist_free_all) slistFreeAll;

    decltype(&curl_easy_init) easyInit;
    decltype(&curl_easy_cleanup) easyCleanup;
    decltype(&curl_easy_setopt) easySetopt;
    decltype(&curl_easy_perform) easyPerform;
    decltype(&curl_easy_getinfo) easyGetinfo;
    decltype(&curl_easy_strerror) easyStrerror;

    decltype(&curl_multi_init) multiInit;
    decltype(&curl_multi_cleanup) multiCleanup;
    decltype(&curl_multi_add_handle) multiAddHandle;
    decltype(&curl_multi_remove_handle) multiRemoveHandle;
    decltype(&curl_multi_perform) multiPerform;
    decltype(&curl_multi_poll) multiPoll;
    decltype(&curl_multi_wakeup) multiWakeup;
    decltype(&curl_multi_info_read) multiInfoRead;
};

/// The functions, once the library has been prepared for this process. Null when the system's
/// library can't be loaded; the next call tries again.
const CurlCalls* curlCalls();

}  // namespace velmora::network
