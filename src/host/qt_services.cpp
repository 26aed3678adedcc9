#include "host/qt_services.h"

#include <unistd.h>

#include <QRandomGenerator>
#include <array>
#include <chrono>

namespace kestrane {

std::uint32_t QtClock::TickCount() const {
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    const auto since_start = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(duration_cast<milliseconds>(since_start).count());
}

void QtRandom::Seed() {
    // 256 bits of entropy, so that keys can't be found from the time of day; the clock is mixed in
    // for a system whose entropy fails.
    std::array<std::uint32_t, 8> words{};
    QRandomGenerator::system()->fillRange(words.data(), static_cast<qsizetype>(words.size()));
    const auto time = std::chrono::system_clock::now().time_since_epoch().count();
    words[0] ^= static_cast<std::uint32_t>(time);
    words[1] ^= static_cast<std::uint32_t>(time >> 32);
    std::seed_seq sequence(words.begin(), words.end());
    engine_.seed(sequence);
}

double QtRandom::Draw() {
    // 53 bits fill a double exactly, so that the draw stays below 1.
    return static_cast<double>(engine_() >> 11) * 0x1.0p-53;
}

void TerminalSound::Beep() {
    if (isatty(STDERR_FILENO) == 0) return;
    const char bell = '\a';
    // A terminal that can't be written to is no reason to stop.
    [[maybe_unused]] const auto written = write(STDERR_FILENO, &bell, 1);
}

}  // namespace kestrane
