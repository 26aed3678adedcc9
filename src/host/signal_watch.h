#pragma once

// SIGINT and SIGTERM as events. A signal handler may do next to nothing, so it writes the number
// into a pipe that the event loop reads. One watch can exist at a time.

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace kestrane {

class SignalWatch {
  public:
    // `on_signal` gets the number of the signal.
    explicit SignalWatch(std::function<void(int)> on_signal);
    // Signals then act as before the watch.
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

  private:
    struct OldActions;

    void ReadOne();

    std::function<void(int)> on_signal_;
    int read_end_ = -1;
    int write_end_ = -1;
    std::unique_ptr<OldActions> old_;
    QObject context_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace kestrane
