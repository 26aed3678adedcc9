#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "host/curl_http_reader.h"
#include "host_test_support.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

std::string Page(const std::string& status, const std::string& body,
                 const std::string& headers = "") {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" +
           headers + "Connection: close\r\n\r\n" + body;
}

class HttpReaderTest : public testing::Test {
  protected:
    HttpReaderTest() {
        limits_.bytes = 1000;
        reader_ = std::make_unique<CurlHttpReader>(limits_);
    }

    // Answers by the path that was asked for; an unknown path gets no answer.
    void Serve(QTcpSocket& socket, const std::string& request) {
        if (request.find("\r\n\r\n") == std::string::npos) return;
        last_request_ = request;
        const std::size_t begin = request.find(' ') + 1;
        const auto page = pages_.find(request.substr(begin, request.find(' ', begin) - begin));
        if (page == pages_.end()) return;
        socket.write(page->second.data(), static_cast<qint64>(page->second.size()));
        socket.disconnectFromHost();
    }

    std::string Url(const std::string& path, const std::string& host = "127.0.0.1") const {
        return "http://" + host + ":" + std::to_string(server_.port()) + path;
    }

    HttpReader::Events Watch() {
        HttpReader::Events events;
        events.progress = [this](std::size_t bytes) { progress_ = bytes; };
        events.complete = [this](const std::string& content) { End(0, content); };
        events.failed = [this](int number, const std::string& text) { End(number, text); };
        return events;
    }

    void End(int number, const std::string& text) {
        ++ends_;
        error_ = number;
        text_ = text;
    }

    // The error number that the fetch ends with, 0 for success.
    int Fetch(const std::string& url) {
        const int before = ends_;
        reader_->Start(url, true, Watch());
        EXPECT_EQ(ends_, before) << "an event came out of Start";
        EXPECT_TRUE(PumpUntil(host_.loop, [&] { return ends_ > before; })) << url;
        return error_;
    }

    HostServices host_;
    std::map<std::string, std::string> pages_;
    std::string last_request_;
    LoopbackServer server_{
        [this](QTcpSocket& socket, const std::string& request) { Serve(socket, request); }};
    CurlHttpReader::Limits limits_;
    std::unique_ptr<CurlHttpReader> reader_;
    std::size_t progress_ = 0;
    int ends_ = 0;
    int error_ = 0;
    std::string text_;
};

TEST_F(HttpReaderTest, APage_ArrivesByteForByte) {
    const std::string body = std::string(993, 'a') + std::string("\t\r\n\xE4\xFF\a\0", 7);
    pages_["/kestraneversions/"] = Page("200 OK", body);
    EXPECT_EQ(Fetch(Url("/kestraneversions/")), 0);
    EXPECT_EQ(text_, body);
    EXPECT_EQ(progress_, body.size());
    EXPECT_NE(last_request_.find("no-cache"), std::string::npos) << last_request_;
}

TEST_F(HttpReaderTest, WhatCountsAsFailed) {
    constexpr int kAny = -1;
    const std::string chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    const struct {
        std::string page;
        int error;
    } kCases[] = {
        {Page("200 OK", std::string(1001, 'a')), CurlHttpReader::kTooLarge},
        {"HTTP/1.1 200 OK\r\n\r\n" + std::string(10'000'000, 'a'), CurlHttpReader::kTooLarge},
        {chunked + "9\r\nhell", kAny},
        {chunked + "5\r\nhello\r\n", kAny},
        {chunked + "zz\r\nhello\r\n0\r\n\r\n", kAny},
        {chunked + "5\r\nhello, world\r\n0\r\n\r\n", kAny},
        {Page("404 Not Found", "sorry"), 404},
        {Page("206 Partial Content", "half"), 206},
        {"HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\nthat was it", kAny},
        {"10 02 FA", kAny},
        {Page("302 Found", "", "Location: " + Url("/good", "localhost") + "\r\n"),
         CurlHttpReader::kRedirectRefused},
        {Page("302 Found", "", "Location: file:///etc/passwd\r\n"), kAny},
        {Page("302 Found", "", "Location: /page\r\n"), kAny},
    };
    pages_["/good"] = Page("200 OK", "good");
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.page.substr(0, 80));
        pages_["/page"] = row.page;
        const int error = Fetch(Url("/page"));
        EXPECT_TRUE(row.error == kAny ? error != 0 : error == row.error) << error;
        EXPECT_LT(progress_, 100'000u);
    }
    EXPECT_EQ(Fetch("ftp://127.0.0.1/"), CurlHttpReader::kBadAddress);
    EXPECT_EQ(Fetch("nothing of the kind"), CurlHttpReader::kBadAddress);
    LoopbackServer gone;
    const int free_port = gone.port();
    gone.StopListening();
    EXPECT_NE(Fetch("http://127.0.0.1:" + std::to_string(free_port) + "/"), 0);
    EXPECT_FALSE(text_.empty());
}

TEST_F(HttpReaderTest, ARedirectOnTheSameHost_IsFollowed) {
    pages_["/old"] = Page("301 Moved Permanently", "moved", "Location: /new\r\n");
    pages_["/new"] = Page("200 OK", "new");
    EXPECT_EQ(Fetch(Url("/old")), 0);
    EXPECT_EQ(text_, "new");
}

TEST_F(HttpReaderTest, AServerThatHangs_IsGivenUp) {
    limits_.total = milliseconds(20);
    reader_ = std::make_unique<CurlHttpReader>(limits_);
    EXPECT_EQ(Fetch(Url("/no/answer")), CurlHttpReader::kTooSlow);
}

TEST_F(HttpReaderTest, ANewStart_EndsTheOldFetchWithoutAnEvent) {
    pages_["/one"] = Page("200 OK", "one");
    pages_["/two"] = Page("200 OK", "two");
    reader_->Start("no address", true, Watch());
    reader_->Start(Url("/one"), true, Watch());
    EXPECT_EQ(Fetch(Url("/two")), 0);
    EXPECT_EQ(text_, "two");
    EXPECT_EQ(ends_, 1);
}

TEST_F(HttpReaderTest, AnEventMayStartPumpOrDestroy) {
    pages_["/one"] = Page("200 OK", "one");
    pages_["/two"] = Page("200 OK", "two");
    auto first = Watch();
    first.complete = [&](const std::string&) {
        EXPECT_EQ(Fetch(Url("/two")), 0);
        EXPECT_EQ(text_, "two");
        reader_.reset();
    };
    reader_->Start(Url("/one"), true, first);
    EXPECT_TRUE(PumpUntil(host_.loop, [&] { return reader_ == nullptr; }));

    reader_ = std::make_unique<CurlHttpReader>(limits_);
    auto by_progress = Watch();
    by_progress.progress = [&](std::size_t) { reader_.reset(); };
    reader_->Start(Url("/one"), true, by_progress);
    EXPECT_TRUE(PumpUntil(host_.loop, [&] { return reader_ == nullptr; }));
    EXPECT_EQ(ends_, 1);
}

}  // namespace
}  // namespace kestrane
