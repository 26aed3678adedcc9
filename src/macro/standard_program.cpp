#include "macro/standard_program.h"

#include "macro/instruction_set.h"

namespace kestrane {
namespace {

struct Line {
    std::uint8_t opcode;
    std::uint8_t second;
};

constexpr std::uint8_t kTurnOn = 0x1A;
constexpr std::uint8_t kTurnOff = 0x2A;
constexpr std::uint8_t kHalfSecond = 0x05;

constexpr Line kBegin[] = {
    {0xC6, 0x03},  // alarm: flash and beep
    {0x03, 0x00},  // GPIs off while the interrupts are set
    {0xD2, kTurnOn}, {0xD3, kTurnOff}, {0x04, 0x00},
};

void Put(MacroMemory& image, int address, Line line) {
    const std::size_t index = 2 * static_cast<std::size_t>(address);
    image.Set(index, line.opcode);
    image.Set(index + 1, line.second);
}

}  // namespace

void WriteStandardProgram(MacroMemory& image) {
    int address = kFirstMacroAddress;
    for (const Line& line : kBegin) Put(image, address++, line);
    for (int i = 0; i < kOutletCount; ++i) {
        Put(image, kTurnOn + i, {OutletOpcode(Effect::kTurnsOnOrSkips, i + 1), kHalfSecond});
        Put(image, kTurnOff + i,
            {OutletOpcode(Effect::kTurnsOffOrSkips, kOutletCount - i), kHalfSecond});
    }
}

}  // namespace kestrane
