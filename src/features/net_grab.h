#pragma once

// Fetches one URL into memory in the background and calls its owner back, from the event loop. A
// new start ends a fetch under way.

#include <cstdint>
#include <functional>
#include <string>

#include "platform/platform.h"

namespace kestrane {

class NetGrab {
  public:
    // The mode in which no cached copy is used.
    static constexpr int kForcedRefresh = 16;

    explicit NetGrab(const Platform& platform)
        : http_(platform.http), clock_(platform.clock), disk_(platform.disk) {}
    ~NetGrab() { http_.Cancel(); }
    NetGrab(const NetGrab&) = delete;
    NetGrab& operator=(const NetGrab&) = delete;

    std::function<void(std::size_t nBytes)> Complete;
    std::function<void(int ErrNum, const std::string& ErrDesc)> Failed;
    std::function<void(std::size_t nBytes)> Progress;

    // By the tick of the start, so that a fetch begun at tick 0 reads as not busy.
    bool Busy() const { return start_tick_ != 0; }
    bool LastFailed() const { return last_failed_; }
    // What the last finished fetch brought, and its milliseconds.
    const std::string& Bytes() const { return bytes_; }
    std::uint32_t Duration() const { return duration_; }

    void DownloadCancel();
    // Does nothing for an empty URL.
    void DownloadStart(const std::string& url, int mode);
    // Writes Bytes to a file in place of what it held; false if there are none or it failed.
    bool SaveAs(const std::string& file_name) const;

  private:
    void End();

    HttpReader& http_;
    const Clock& clock_;
    FileStore& disk_;
    std::uint32_t start_tick_ = 0;
    std::uint32_t duration_ = 0;
    bool last_failed_ = false;
    std::string bytes_;
};

}  // namespace kestrane
