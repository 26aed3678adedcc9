#pragma once

// Lines of standard input on the event loop. It reads with read() alone, so that no line is held
// back in a buffer, and falls silent at the end of the input.

#include <QSocketNotifier>
#include <functional>
#include <string>

namespace kestrane::unit {

class StandardInput {
  public:
    explicit StandardInput(std::function<void(const std::string& line)> on_line);

  private:
    void Read();

    std::function<void(const std::string&)> on_line_;
    std::string rest_;
    QSocketNotifier notifier_;
};

}  // namespace kestrane::unit
