#pragma once

// What one tool among many in a process runs on: services and an event loop of its own, on which
// its waits hold up nobody else. A program hands out a lane for each unit that it works on.

#include <functional>
#include <memory>

#include "platform/platform.h"

namespace kestrane {

class Lane {
  public:
    virtual ~Lane() = default;

    virtual Platform With(MessageBoxes& boxes, FileDialogs& files, Sound& sound) = 0;

    // Begins `task` soon, once in the life of a lane; it may pump. Its result, or the status that
    // ended it from within, goes to `on_end`, which may destroy the lane.
    virtual void Start(std::function<int()> task, std::function<void(int status)> on_end) = 0;

    // Ends the task at its next wait with this status: what stands on its stack is destroyed.
    virtual void Cut(int status) = 0;
};

using NewLane = std::function<std::unique_ptr<Lane>()>;

}  // namespace kestrane
