#include "host/input_lines.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

namespace kestrane {

InputLines::InputLines(int descriptor, OnLine on_line, OnEnd on_end)
    : descriptor_(descriptor),
      on_line_(std::move(on_line)),
      on_end_(std::move(on_end)),
      notifier_(descriptor, QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &context_, [this] { ReadSome(); });
}

void InputLines::ReadSome() {
    std::array<char, 65536> bytes;
    const auto count = read(descriptor_, bytes.data(), bytes.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
    if (count > 0) {
        splitter_.Feed(std::string_view(bytes.data(), static_cast<std::size_t>(count)), lines_);
    } else {
        splitter_.Finish(lines_);
        at_end_ = true;
    }
    // No more is read before these lines are handed over, and nothing after the end, where the
    // notifier would spin.
    if (at_end_ || !lines_.empty()) {
        notifier_.setEnabled(false);
        Schedule();
    }
}

void InputLines::HandOverOne() {
    scheduled_ = false;
    if (lines_.empty()) {
        const OnEnd on_end = on_end_;
        on_end();
        return;
    }
    const InputLine line = std::move(lines_.front());
    lines_.pop_front();
    if (!lines_.empty() || at_end_) {
        Schedule();
    } else {
        notifier_.setEnabled(true);
    }
    // The callback may destroy this object: nothing of it is used from here on.
    const OnLine on_line = on_line_;
    on_line(line);
}

void InputLines::Schedule() {
    if (std::exchange(scheduled_, true)) return;
    QMetaObject::invokeMethod(
        &context_, [this] { HandOverOne(); }, Qt::QueuedConnection);
}

}  // namespace kestrane
