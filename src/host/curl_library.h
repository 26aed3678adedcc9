#pragma once

// libcurl, loaded when the first page is asked for and kept: it brings some thirty libraries with
// it, which would be a fifth of a program's start, and most runs read no page.

#include <curl/curl.h>

namespace kestrane {

// Its functions under their own names (https://curl.se/libcurl/c/allfuncs.html).
struct CurlLibrary {
    // Null if this machine has none. Its global state is set up then.
    static const CurlLibrary* Get();

    decltype(&::curl_global_init) global_init = nullptr;
    decltype(&::curl_url) url = nullptr;
    decltype(&::curl_url_set) url_set = nullptr;
    decltype(&::curl_url_get) url_get = nullptr;
    decltype(&::curl_url_cleanup) url_cleanup = nullptr;
    decltype(&::curl_free) free = nullptr;
    decltype(&::curl_slist_append) slist_append = nullptr;
    decltype(&::curl_slist_free_all) slist_free_all = nullptr;
    decltype(&::curl_multi_init) multi_init = nullptr;
    decltype(&::curl_multi_add_handle) multi_add_handle = nullptr;
    decltype(&::curl_multi_remove_handle) multi_remove_handle = nullptr;
    decltype(&::curl_multi_perform) multi_perform = nullptr;
    decltype(&::curl_multi_info_read) multi_info_read = nullptr;
    decltype(&::curl_multi_cleanup) multi_cleanup = nullptr;
    decltype(&::curl_easy_init) easy_init = nullptr;
    decltype(&::curl_easy_setopt) easy_setopt = nullptr;
    decltype(&::curl_easy_getinfo) easy_getinfo = nullptr;
    decltype(&::curl_easy_strerror) easy_strerror = nullptr;
    decltype(&::curl_easy_cleanup) easy_cleanup = nullptr;
};

}  // namespace kestrane
