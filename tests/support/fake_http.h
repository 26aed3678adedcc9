#pragma once

// The HTTP reader of the virtual platform. The test makes each fetch progress, complete or fail by
// hand; the events then come from the schedule, and none comes once the fetch has been cancelled
// or has ended.

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/http_reader.h"
#include "support/virtual_time.h"

namespace kestrane {

class FakeHttp : public HttpReader {
  public:
    using Milliseconds = std::chrono::milliseconds;

    struct Request {
        std::string url;
        bool bypass_cache;
    };

    explicit FakeHttp(VirtualTime& time) : time_(time) {}

    void Start(const std::string& url, bool bypass_cache, Events events) override;
    void Cancel() override;

    // For the fetch under way; without one nothing happens.
    void Progress(std::size_t bytes_so_far, Milliseconds delay = Milliseconds{0});
    void Complete(std::string content, Milliseconds delay = Milliseconds{0});
    void Fail(int error_number, std::string description, Milliseconds delay = Milliseconds{0});

    bool busy() const { return busy_; }
    const std::vector<Request>& requests() const { return requests_; }

  private:
    // Runs `action` as an event, unless the present fetch has ended by then.
    void Schedule(Milliseconds delay, VirtualTime::Action action);

    VirtualTime& time_;
    Events events_;
    bool busy_ = false;
    std::vector<Request> requests_;
};

}  // namespace kestrane
