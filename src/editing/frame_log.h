#pragma once

// The log of what went over the line, in words: "read display 0x0020, 16 bytes: accepted". It is
// bounded, and like polls in a row are one line with a count, so that a day of them fits. Bytes
// that may hold keys, passwords, salts or hashes are left out unless they are asked for.

#include <deque>
#include <functional>
#include <string>

#include "tool/tool.h"

namespace kestrane {

struct LogLine {
    std::uint32_t when = 0;  // milliseconds of the platform's clock
    std::string board;       // "relay", "display"
    std::string words;       // what was asked and how it ended
    std::string bytes;       // in hexadecimal
    bool write = false;      // towards the unit
    bool secret = false;     // the bytes are to be left out
    int times = 1;
};

class FrameLog : public JournalObserver {
  public:
    static constexpr std::size_t kMost = 5000;

    explicit FrameLog(Tool& tool);
    ~FrameLog() override;
    FrameLog(const FrameLog&) = delete;
    FrameLog& operator=(const FrameLog&) = delete;

    // Oldest first.
    const std::deque<LogLine>& Lines() const { return lines_; }
    // After a line was added (true), or the last one has got another count (false).
    void OnAdded(std::function<void(bool)> observer) { observer_ = std::move(observer); }

    void ExchangeEnded(const Exchange& exchange) override;

  private:
    Tool& tool_;
    std::deque<LogLine> lines_;
    std::function<void(bool)> observer_;
};

// Whether an exchange carries what nobody should read over a shoulder.
bool CarriesSecrets(const Exchange& exchange, const Session& session);
// One exchange in words, without its bytes.
std::string InWords(const Exchange& exchange, const Session& session);

}  // namespace kestrane
