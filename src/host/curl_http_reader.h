#pragma once

// The HTTP reader on libcurl. While a fetch is under way a timer gives libcurl its turns; what
// they bring is only noted, and the owner's events are called from an event of their own, so that
// they may pump, start, cancel or destroy the reader.

#include <QObject>
#include <QTimer>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "host/curl_library.h"
#include "platform/http_reader.h"

namespace kestrane {

class CurlHttpReader : public HttpReader {
  public:
    struct Limits {
        std::size_t bytes = std::size_t{1} << 20;
        std::chrono::milliseconds total{30'000};
    };

    // Error numbers of Failed: the HTTP status if the server sent one other than 200, one of these,
    // or else libcurl's, below 100 (https://curl.se/libcurl/c/libcurl-errors.html).
    enum Error : int {
        kBadAddress = 1001,
        kTooLarge = 1002,
        kTooSlow = 1004,
        kRedirectRefused = 1005,
        kNoLibrary = 1006,
    };

    explicit CurlHttpReader(const Limits& limits);
    CurlHttpReader() : CurlHttpReader(Limits{}) {}
    ~CurlHttpReader() override;
    CurlHttpReader(const CurlHttpReader&) = delete;
    CurlHttpReader& operator=(const CurlHttpReader&) = delete;

    // Takes http and https, without a proxy. A redirect must stay on its host and must not leave
    // https.
    void Start(const std::string& url, bool bypass_cache, Events events) override;
    void Cancel() override;

  private:
    template <auto Free>
    struct Freed {
        void operator()(auto* handle) const { (CurlLibrary::Get()->*Free)(handle); }
    };

    static std::size_t TakeContent(const char* data, std::size_t size, std::size_t count,
                                   CurlHttpReader* reader);
    void Send();
    void OnTurn();
    void OnFinished(CURLcode result);
    void OnRedirect(const std::string& target);
    void EndWith(int error_number, std::string description);
    void DropTransfer();
    void TellProgress();
    void TellEnd();

    // Runs the member as an event of its own, if this fetch still stands then.
    void Later(void (CurlHttpReader::*step)());

    Limits limits_;
    const CurlLibrary* curl_ = nullptr;  // from the first Start on
    QObject context_;
    QTimer total_;
    QTimer turns_;
    std::unique_ptr<CURLM, Freed<&CurlLibrary::multi_cleanup>> transfers_;
    std::unique_ptr<CURL, Freed<&CurlLibrary::easy_cleanup>> transfer_;
    std::unique_ptr<curl_slist, Freed<&CurlLibrary::slist_free_all>> headers_;
    std::string address_;  // as redirected so far
    int redirects_ = 0;
    std::uint64_t fetch_ = 0;  // changes at each Start, Cancel and end
    Events events_;
    std::string content_;
    bool progress_due_ = false;
    bool ended_ = false;  // the end is known and will be told
    int error_number_ = 0;
    std::string error_description_;
};

}  // namespace kestrane
