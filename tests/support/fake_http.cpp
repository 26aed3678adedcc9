#include "support/fake_http.h"

#include <utility>

namespace kestrane {

void FakeHttp::Start(const std::string& url, bool bypass_cache, Events events) {
    Cancel();
    requests_.push_back({url, bypass_cache});
    events_ = std::move(events);
    busy_ = true;
}

void FakeHttp::Cancel() {
    busy_ = false;
    events_ = {};
}

void FakeHttp::Progress(std::size_t bytes_so_far, Milliseconds delay) {
    Schedule(delay, [this, bytes_so_far] {
        auto progress = events_.progress;
        if (progress) progress(bytes_so_far);
    });
}

void FakeHttp::Complete(std::string content, Milliseconds delay) {
    Schedule(delay, [this, content = std::move(content)] {
        busy_ = false;
        Events events = std::exchange(events_, {});
        if (events.complete) events.complete(content);
    });
}

void FakeHttp::Fail(int error_number, std::string description, Milliseconds delay) {
    Schedule(delay, [this, error_number, description = std::move(description)] {
        busy_ = false;
        Events events = std::exchange(events_, {});
        if (events.failed) events.failed(error_number, description);
    });
}

void FakeHttp::Schedule(Milliseconds delay, VirtualTime::Action action) {
    time_.After(delay, [this, fetch = requests_.size(), action = std::move(action)] {
        if (busy_ && fetch == requests_.size()) action();
    });
}

}  // namespace kestrane
