#include "host/curl_http_reader.h"

#include <optional>
#include <utility>

namespace kestrane {
namespace {

constexpr int kMostRedirects = 5;
constexpr long kStatusOk = 200;
constexpr std::chrono::milliseconds kTurn{10};

struct WebAddress {
    std::string scheme, host;
};

std::optional<WebAddress> ParsedAddress(const CurlLibrary& curl, const std::string& address) {
    const std::unique_ptr<CURLU, decltype(curl.url_cleanup)> url(curl.url(), curl.url_cleanup);
    if (curl.url_set(url.get(), CURLUPART_URL, address.c_str(), 0) != CURLUE_OK) return {};
    const auto part = [&](CURLUPart which) -> std::string {
        char* text = nullptr;
        if (curl.url_get(url.get(), which, &text, 0) != CURLUE_OK) return {};
        const std::unique_ptr<char, decltype(curl.free)> owned(text, curl.free);
        return text;
    };
    WebAddress parsed{part(CURLUPART_SCHEME), part(CURLUPART_HOST)};
    if (parsed.scheme != "http" && parsed.scheme != "https") return {};
    return parsed;
}

}  // namespace

CurlHttpReader::CurlHttpReader(const Limits& limits) : limits_(limits) {
    total_.setSingleShot(true);
    turns_.setInterval(kTurn);
    QObject::connect(&total_, &QTimer::timeout, &context_,
                     [this] { EndWith(kTooSlow, "The page did not arrive in time"); });
    QObject::connect(&turns_, &QTimer::timeout, &context_, [this] { OnTurn(); });
}

CurlHttpReader::~CurlHttpReader() { Cancel(); }

void CurlHttpReader::Start(const std::string& url, bool bypass_cache, Events events) {
    Cancel();
    events_ = std::move(events);
    total_.start(limits_.total);
    address_ = url;
    redirects_ = 0;
    curl_ = CurlLibrary::Get();
    if (!curl_) return EndWith(kNoLibrary, "This machine has no libcurl, which reads web pages");
    headers_.reset(bypass_cache ? curl_->slist_append(nullptr, "Cache-Control: no-cache")
                                : nullptr);
    if (ParsedAddress(*curl_, url)) {
        Send();
    } else {
        EndWith(kBadAddress, "Not an address of the web: " + url);
    }
}

void CurlHttpReader::Cancel() {
    ++fetch_;
    total_.stop();
    DropTransfer();
    events_ = {};
    content_.clear();
    progress_due_ = false;
    ended_ = false;
    error_number_ = 0;
    error_description_.clear();
}

void CurlHttpReader::Send() {
    if (!transfers_) transfers_.reset(curl_->multi_init());
    DropTransfer();
    transfer_.reset(curl_->easy_init());
    CURL* const transfer = transfer_.get();
    curl_->easy_setopt(transfer, CURLOPT_URL, address_.c_str());
    curl_->easy_setopt(transfer, CURLOPT_HTTPHEADER, headers_.get());
    curl_->easy_setopt(transfer, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_->easy_setopt(transfer, CURLOPT_PROXY, "");
    curl_->easy_setopt(transfer, CURLOPT_NOSIGNAL, 1L);
    curl_->easy_setopt(transfer, CURLOPT_WRITEFUNCTION, &TakeContent);
    curl_->easy_setopt(transfer, CURLOPT_WRITEDATA, this);
    curl_->multi_add_handle(transfers_.get(), transfer);
    turns_.start();
}

std::size_t CurlHttpReader::TakeContent(const char* data, std::size_t size, std::size_t count,
                                        CurlHttpReader* reader) {
    const std::size_t length = size * count;
    if (reader->ended_ || reader->content_.size() + length > reader->limits_.bytes) {
        reader->EndWith(kTooLarge, "The page is too large");
        return 0;  // ends the transfer
    }
    reader->content_.append(data, length);
    if (!std::exchange(reader->progress_due_, true)) reader->Later(&CurlHttpReader::TellProgress);
    return length;
}

void CurlHttpReader::OnTurn() {
    int running = 0;
    curl_->multi_perform(transfers_.get(), &running);
    int left = 0;
    const CURLMsg* const message = curl_->multi_info_read(transfers_.get(), &left);
    if (message && message->msg == CURLMSG_DONE) OnFinished(message->data.result);
}

void CurlHttpReader::OnFinished(CURLcode result) {
    long status = 0;
    const char* target = nullptr;
    curl_->easy_getinfo(transfer_.get(), CURLINFO_RESPONSE_CODE, &status);
    curl_->easy_getinfo(transfer_.get(), CURLINFO_REDIRECT_URL, &target);
    turns_.stop();
    if (ended_) return;
    if (target && *target) {
        OnRedirect(target);
    } else if (status != 0 && status != kStatusOk) {
        EndWith(static_cast<int>(status),
                "The server answers with HTTP status " + std::to_string(status));
    } else {
        EndWith(result, result == CURLE_OK ? "" : curl_->easy_strerror(result));
    }
}

void CurlHttpReader::OnRedirect(const std::string& target) {
    const auto from = ParsedAddress(*curl_, address_);
    const auto to = ParsedAddress(*curl_, target);
    const bool leaves_https = to && from->scheme == "https" && to->scheme != "https";
    if (!to || to->host != from->host || leaves_https) {
        EndWith(kRedirectRefused, "The server redirects to " + target);
    } else if (++redirects_ > kMostRedirects) {
        EndWith(CURLE_TOO_MANY_REDIRECTS, curl_->easy_strerror(CURLE_TOO_MANY_REDIRECTS));
    } else {
        content_.clear();
        address_ = target;
        Send();
    }
}

void CurlHttpReader::EndWith(int error_number, std::string description) {
    if (ended_) return;
    ended_ = true;
    error_number_ = error_number;
    error_description_ = std::move(description);
    Later(&CurlHttpReader::TellEnd);
}

void CurlHttpReader::DropTransfer() {
    turns_.stop();
    if (transfer_) curl_->multi_remove_handle(transfers_.get(), transfer_.get());
    transfer_.reset();
}

void CurlHttpReader::TellProgress() {
    progress_due_ = false;
    const auto progress = events_.progress;
    const std::size_t so_far = content_.size();
    if (progress) progress(so_far);
}

void CurlHttpReader::TellEnd() {
    const Events events = std::exchange(events_, {});
    const std::string content = std::exchange(content_, {});
    const int error_number = error_number_;
    const std::string description = error_description_;
    Cancel();
    // The reader may be destroyed in here: nothing of it is used from here on.
    if (error_number != 0) {
        if (events.failed) events.failed(error_number, description);
    } else if (events.complete) {
        events.complete(content);
    }
}

void CurlHttpReader::Later(void (CurlHttpReader::*step)()) {
    QMetaObject::invokeMethod(
        &context_,
        [this, step, fetch = fetch_] {
            if (fetch == fetch_) (this->*step)();
        },
        Qt::QueuedConnection);
}

}  // namespace kestrane
