#include "host/curl_library.h"

#include <QLibrary>
#include <optional>

namespace kestrane {
namespace {

// The number of the library's binary interface, which has not changed since 2006.
constexpr int kInterface = 4;

std::optional<CurlLibrary> Loaded() {
    QLibrary file(QStringLiteral("curl"), kInterface);
    bool whole = true;
    const auto find = [&](auto& function, const char* name) {
        function =
            reinterpret_cast<std::remove_reference_t<decltype(function)>>(file.resolve(name));
        whole = whole && function;
    };
    CurlLibrary curl;
    find(curl.global_init, "curl_global_init");
    find(curl.url, "curl_url");
    find(curl.url_set, "curl_url_set");
    find(curl.url_get, "curl_url_get");
    find(curl.url_cleanup, "curl_url_cleanup");
    find(curl.free, "curl_free");
    find(curl.slist_append, "curl_slist_append");
    find(curl.slist_free_all, "curl_slist_free_all");
    find(curl.multi_init, "curl_multi_init");
    find(curl.multi_add_handle, "curl_multi_add_handle");
    find(curl.multi_remove_handle, "curl_multi_remove_handle");
    find(curl.multi_perform, "curl_multi_perform");
    find(curl.multi_info_read, "curl_multi_info_read");
    find(curl.multi_cleanup, "curl_multi_cleanup");
    find(curl.easy_init, "curl_easy_init");
    find(curl.easy_setopt, "curl_easy_setopt");
    find(curl.easy_getinfo, "curl_easy_getinfo");
    find(curl.easy_strerror, "curl_easy_strerror");
    find(curl.easy_cleanup, "curl_easy_cleanup");
    if (!whole || curl.global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) return {};
    return curl;
}

}  // namespace

const CurlLibrary* CurlLibrary::Get() {
    static const std::optional<CurlLibrary> loaded = Loaded();
    return loaded ? &*loaded : nullptr;
}

}  // namespace kestrane
