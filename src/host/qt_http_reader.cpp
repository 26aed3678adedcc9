#include "host/qt_http_reader.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <algorithm>
#include <utility>

namespace kestrane {
namespace {

constexpr int kMostRedirects = 5;
constexpr int kStatusOk = 200;

// A reply in between two reads is held below this.
constexpr qint64 kReadBuffer = 64 * 1024;

bool IsWebAddress(const QUrl& url) {
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == "http" || url.scheme() == "https");
}

QNetworkRequest RequestFor(const QUrl& url, bool bypass_cache) {
    QNetworkRequest request(url);
    if (bypass_cache) {
        request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                             QNetworkRequest::AlwaysNetwork);
    }
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMostRedirects);
    // Bytes are counted as they come: a packed page could unfold beyond every limit.
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

}  // namespace

QtHttpReader::QtHttpReader(const Limits& limits) : limits_(limits) {
    total_.setSingleShot(true);
    QObject::connect(&total_, &QTimer::timeout, &context_,
                     [this] { EndWith(kTooSlow, "The page did not arrive in time"); });
}

QtHttpReader::~QtHttpReader() { Cancel(); }

void QtHttpReader::Start(const std::string& url, bool bypass_cache, Events events) {
    Cancel();
    events_ = std::move(events);
    total_.start(limits_.total);
    const QUrl address(QString::fromLatin1(url.data(), static_cast<qsizetype>(url.size())));
    if (IsWebAddress(address)) {
        Send(address, bypass_cache);
    } else {
        EndWith(kBadAddress, "Not an address of the web: " + url);
    }
}

void QtHttpReader::Cancel() {
    ++fetch_;
    total_.stop();
    DropReply();
    events_ = {};
    content_.clear();
    progress_due_ = false;
    ended_ = false;
    error_number_ = 0;
    error_description_.clear();
}

void QtHttpReader::Send(const QUrl& url, bool bypass_cache) {
    // Made with the first fetch: it brings a thread of its own.
    if (!manager_) manager_ = std::make_unique<QNetworkAccessManager>();
    address_ = url;
    reply_ = manager_->get(RequestFor(url, bypass_cache));
    reply_->setReadBufferSize(kReadBuffer);
    QObject::connect(reply_, &QNetworkReply::redirected, &context_,
                     [this](const QUrl& target) { OnRedirect(target); });
    QObject::connect(reply_, &QNetworkReply::readyRead, &context_, [this] { OnReadyRead(); });
    QObject::connect(reply_, &QNetworkReply::finished, &context_, [this] { OnFinished(); });
}

void QtHttpReader::OnRedirect(const QUrl& target) {
    // The reply's own address is the new one already.
    const bool leaves_https = address_.scheme() == "https" && target.scheme() != "https";
    if (IsWebAddress(target) && target.host() == address_.host() && !leaves_https) {
        address_ = target;
        emit reply_->redirectAllowed();
    } else {
        EndWith(kRedirectRefused, "The server redirects to " + target.toString().toStdString());
    }
}

void QtHttpReader::OnReadyRead() {
    const QByteArray incoming = reply_->readAll();
    if (ended_ || incoming.isEmpty()) return;
    content_ += incoming;
    if (static_cast<std::size_t>(content_.size()) > limits_.bytes) {
        EndWith(kTooLarge, "The page is too large");
    } else if (!progress_due_) {
        progress_due_ = true;
        Later(&QtHttpReader::TellProgress);
    }
}

void QtHttpReader::OnFinished() {
    OnReadyRead();
    if (ended_) return;
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status != 0 && status != kStatusOk) {
        EndWith(status, "The server answers with HTTP status " + std::to_string(status));
    } else if (reply_->error() != QNetworkReply::NoError) {
        EndWith(static_cast<int>(reply_->error()), reply_->errorString().toStdString());
    } else {
        EndWith(0, "");
    }
}

void QtHttpReader::EndWith(int error_number, std::string description) {
    if (ended_) return;
    ended_ = true;
    error_number_ = error_number;
    error_description_ = std::move(description);
    Later(&QtHttpReader::TellEnd);
}

void QtHttpReader::DropReply() {
    // Not deleteLater: that isn't carried out within nested waits. No signal of the reply is on
    // the stack here, as its slots neither pump nor call out.
    if (reply_) QObject::disconnect(reply_, nullptr, &context_, nullptr);
    delete std::exchange(reply_, nullptr);
}

void QtHttpReader::TellProgress() {
    progress_due_ = false;
    const auto progress = events_.progress;
    const auto so_far = static_cast<std::size_t>(content_.size());
    if (progress) progress(so_far);
}

void QtHttpReader::TellEnd() {
    const Events events = std::exchange(events_, {});
    const QByteArray content = std::exchange(content_, {});
    const int error_number = error_number_;
    const std::string description = error_description_;
    Cancel();
    // The reader may be destroyed in here: nothing of it is used from here on.
    if (error_number != 0) {
        if (events.failed) events.failed(error_number, description);
    } else if (events.complete) {
        events.complete(content.toStdString());
    }
}

void QtHttpReader::Later(void (QtHttpReader::*step)()) {
    QMetaObject::invokeMethod(
        &context_,
        [this, step, fetch = fetch_] {
            if (fetch == fetch_) (this->*step)();
        },
        Qt::QueuedConnection);
}

}  // namespace kestrane
