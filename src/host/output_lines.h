#pragma once

// Lines to a descriptor that may not be read: a pipe, a terminal that is held. Writing never blocks
// and what waits is bounded; lines for which there is no room are counted and left out.

#include <QObject>
#include <QSocketNotifier>
#include <cstddef>
#include <string>
#include <string_view>

namespace kestrane {

class OutputLines {
  public:
    static constexpr std::size_t kMostWaiting = std::size_t{1} << 20;

    explicit OutputLines(int descriptor);

    // Adds the end of the line. Once the reader has gone, all lines are left out.
    void Write(std::string_view line);

  private:
    void Append(std::string_view line);
    void SendSome();

    int descriptor_;
    std::string waiting_;
    std::size_t left_out_ = 0;
    bool broken_ = false;
    QObject context_;
    QSocketNotifier notifier_;
};

}  // namespace kestrane
