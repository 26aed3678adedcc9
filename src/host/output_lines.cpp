#include "host/output_lines.h"

#include <limits.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace kestrane {
namespace {

// A pipe that polls as writable takes this much without blocking (POSIX, write).
constexpr std::size_t kPiece = _POSIX_PIPE_BUF;

bool CanWrite(int descriptor) {
    pollfd asked{descriptor, POLLOUT, 0};
    return poll(&asked, 1, 0) == 1;
}

}  // namespace

OutputLines::OutputLines(int descriptor)
    : descriptor_(descriptor), notifier_(descriptor, QSocketNotifier::Write) {
    notifier_.setEnabled(false);
    QObject::connect(&notifier_, &QSocketNotifier::activated, &context_, [this] { SendSome(); });
}

void OutputLines::Write(std::string_view line) {
    if (broken_) return;
    if (waiting_.size() + line.size() > kMostWaiting) {
        ++left_out_;
        return;
    }
    if (left_out_ > 0) {
        Append("# " + std::to_string(std::exchange(left_out_, 0)) + " lines left out");
    }
    Append(line);
    SendSome();
}

void OutputLines::Append(std::string_view line) {
    waiting_ += line;
    waiting_ += '\n';
}

void OutputLines::SendSome() {
    std::size_t sent = 0;
    while (sent < waiting_.size() && CanWrite(descriptor_)) {
        const std::size_t count = std::min(kPiece, waiting_.size() - sent);
        const ssize_t written = write(descriptor_, waiting_.data() + sent, count);
        if (written > 0) {
            sent += static_cast<std::size_t>(written);
        } else if (errno != EINTR && errno != EAGAIN) {
            broken_ = true;
            sent = waiting_.size();
        } else {
            break;
        }
    }
    waiting_.erase(0, sent);
    notifier_.setEnabled(!waiting_.empty());
}

}  // namespace kestrane
