#pragma once

// The small services: time of day, milliseconds, random draws, the beep.

#include <cstdint>

namespace kestrane {

class Clock {
  public:
    virtual ~Clock() = default;

    // Milliseconds from some start, wrapping at 32 bits.
    virtual std::uint32_t TickCount() const = 0;
};

class Random {
  public:
    virtual ~Random() = default;

    // Seeds the generator afresh from the clock and from the operating system's entropy, so that
    // two seedings within one tick of the clock differ.
    virtual void Seed() = 0;

    // A draw R with 0 <= R < 1.
    virtual double Draw() = 0;
};

class Sound {
  public:
    virtual ~Sound() = default;
    virtual void Beep() = 0;
};

}  // namespace kestrane
