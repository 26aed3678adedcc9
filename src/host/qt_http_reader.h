#pragma once

// The HTTP reader on QNetworkAccessManager. Qt's signals only note what has happened; the owner's
// events are called from an event of their own, so that they may pump, start, cancel or destroy
// the reader.

#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/http_reader.h"

class QNetworkAccessManager;
class QNetworkReply;

namespace kestrane {

class QtHttpReader : public HttpReader {
  public:
    struct Limits {
        std::size_t bytes = std::size_t{1} << 20;
        std::chrono::milliseconds total{30'000};
    };

    // Error numbers of Failed: the HTTP status if the server sent one other than 200, one of these,
    // or else Qt's number of the network error, below 100.
    enum Error : int {
        kBadAddress = 1001,
        kTooLarge = 1002,
        kTooSlow = 1004,
        kRedirectRefused = 1005,
    };

    explicit QtHttpReader(const Limits& limits);
    QtHttpReader() : QtHttpReader(Limits{}) {}
    ~QtHttpReader() override;
    QtHttpReader(const QtHttpReader&) = delete;
    QtHttpReader& operator=(const QtHttpReader&) = delete;

    // Takes http and https. Text is any content without control codes other than tab, CR and LF.
    // A redirect must stay on its host and must not leave https.
    void Start(const std::string& url, bool bypass_cache, Events events) override;
    void Cancel() override;

  private:
    void Send(const QUrl& url, bool bypass_cache);
    void OnRedirect(const QUrl& target);
    void OnReadyRead();
    void OnFinished();
    void EndWith(int error_number, std::string description);
    void DropReply();
    void TellProgress();
    void TellEnd();

    // Runs the member as an event of its own, if this fetch still stands then.
    void Later(void (QtHttpReader::*step)());

    Limits limits_;
    QObject context_;
    QTimer total_;
    std::unique_ptr<QNetworkAccessManager> manager_;
    QNetworkReply* reply_ = nullptr;
    QUrl address_;             // as redirected so far
    std::uint64_t fetch_ = 0;  // changes at each Start, Cancel and end
    Events events_;
    QByteArray content_;
    bool progress_due_ = false;
    bool ended_ = false;  // the end is known and will be told
    int error_number_ = 0;
    std::string error_description_;
};

}  // namespace kestrane
