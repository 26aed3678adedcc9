#pragma once

// Fetches one URL into memory in the background. Its events come from the event loop, one of
// Complete or Failed for each Start that is not cancelled.

#include <cstddef>
#include <functional>
#include <string>

namespace kestrane {

class HttpReader {
  public:
    struct Events {
        std::function<void(std::size_t bytes_so_far)> progress;
        std::function<void(std::string content)> complete;
        std::function<void(int error_number, std::string description)> failed;
    };

    virtual ~HttpReader() = default;

    // Starts the fetch and returns at once. A fetch under way is cancelled first. With
    // `bypass_cache` no cached copy is used. The content is any bytes. A page larger than 1 MiB, an
    // incomplete or malformed one, an HTTP status other than 200, a redirect to another host and a
    // fetch of more than 30 s in all count as failed.
    virtual void Start(const std::string& url, bool bypass_cache, Events events) = 0;

    // Ends the fetch under way without an event; does nothing when idle.
    virtual void Cancel() = 0;
};

}  // namespace kestrane
