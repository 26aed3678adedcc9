#pragma once

// The small services of a program without windows.

#include <cstdint>
#include <random>

#include "platform/services.h"

namespace kestrane {

class QtClock : public Clock {
  public:
    std::uint32_t TickCount() const override;
};

class QtRandom : public Random {
  public:
    QtRandom() { Seed(); }

    void Seed() override;
    double Draw() override;

  private:
    std::mt19937_64 engine_;
};

// Rings the terminal on standard error; silent if that is none.
class TerminalSound : public Sound {
  public:
    void Beep() override;
};

}  // namespace kestrane
