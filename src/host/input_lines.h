#pragma once

// Lines of a descriptor (a pipe, a terminal, a file), each handed over as an event of its own. A
// callback may pump: the next line then comes inside it, in order.

#include <QObject>
#include <QSocketNotifier>
#include <cstddef>
#include <deque>
#include <functional>

#include "host/line_splitter.h"

namespace kestrane {

class InputLines {
  public:
    static constexpr std::size_t kLongestLine = std::size_t{1} << 20;

    using OnLine = std::function<void(const InputLine& line)>;
    using OnEnd = std::function<void()>;

    // Reads from the first pump on. `on_end` comes once, after the last line; a last line without
    // an end counts as one. A descriptor that can't be read is at its end.
    InputLines(int descriptor, OnLine on_line, OnEnd on_end);

  private:
    void ReadSome();
    void HandOverOne();
    void Schedule();

    int descriptor_;
    OnLine on_line_;
    OnEnd on_end_;
    LineSplitter splitter_{kLongestLine};
    std::deque<InputLine> lines_;
    bool at_end_ = false;
    bool scheduled_ = false;
    QObject context_;
    QSocketNotifier notifier_;
};

}  // namespace kestrane
