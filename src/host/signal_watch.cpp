#include "host/signal_watch.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <utility>

namespace kestrane {
namespace {

constexpr std::array kWatched{SIGINT, SIGTERM};

// A signal handler gets no pointer of ours: this is where it finds the pipe.
std::atomic<int> pipe_for_signals{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void WriteSignal(int number) {
    const int saved_errno = errno;
    const auto byte = static_cast<char>(number);
    [[maybe_unused]] const auto written = write(pipe_for_signals.load(), &byte, 1);
    errno = saved_errno;
}

}  // namespace

struct SignalWatch::OldActions {
    std::array<struct sigaction, kWatched.size()> actions{};
};

SignalWatch::SignalWatch(std::function<void(int)> on_signal)
    : on_signal_(std::move(on_signal)), old_(std::make_unique<OldActions>()) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    read_end_ = ends[0];
    write_end_ = ends[1];
    notifier_ = std::make_unique<QSocketNotifier>(read_end_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_,
                     [this] { ReadOne(); });
    pipe_for_signals = write_end_;
    struct sigaction action {};
    action.sa_handler = WriteSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kWatched.size(); ++i) {
        sigaction(kWatched[i], &action, &old_->actions[i]);
    }
}

SignalWatch::~SignalWatch() {
    if (read_end_ == -1) return;
    for (std::size_t i = 0; i < kWatched.size(); ++i) {
        sigaction(kWatched[i], &old_->actions[i], nullptr);
    }
    pipe_for_signals = -1;
    notifier_.reset();
    close(read_end_);
    close(write_end_);
}

void SignalWatch::ReadOne() {
    char number = 0;
    if (read(read_end_, &number, 1) != 1) return;
    // The callback may destroy this object: nothing of it is used from here on.
    const auto on_signal = on_signal_;
    on_signal(number);
}

}  // namespace kestrane
