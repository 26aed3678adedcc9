#include "standard_input.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace kestrane::unit {
namespace {

constexpr std::size_t kLongestLine = 4096;

}  // namespace

StandardInput::StandardInput(std::function<void(const std::string&)> on_line)
    : on_line_(std::move(on_line)), notifier_(STDIN_FILENO, QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { Read(); });
}

void StandardInput::Read() {
    std::array<char, 4096> bytes;
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
    if (count <= 0) {
        notifier_.setEnabled(false);
        if (!rest_.empty()) on_line_(std::exchange(rest_, {}));
        return;
    }
    rest_.append(bytes.data(), static_cast<std::size_t>(count));
    for (std::size_t end = 0; (end = rest_.find('\n')) != std::string::npos;) {
        const std::string line = rest_.substr(0, end);
        rest_.erase(0, end + 1);
        on_line_(line);
    }
    if (rest_.size() > kLongestLine) rest_.clear();
}

}  // namespace kestrane::unit
