#include "unit/board_memory.h"

namespace kestrane::unit {

void BoardMemory::Set(std::size_t address, int value) {
    if (address >= kBoardBytes) return;
    bytes_[address] = static_cast<std::uint8_t>(value & 0xFF);
}

std::string BoardMemory::Read(std::size_t address, std::size_t count) const {
    std::string data(count, '\xFF');
    for (std::size_t i = 0; i < count && address + i < kBoardBytes; ++i) {
        data[i] = static_cast<char>(bytes_[address + i]);
    }
    return data;
}

void BoardMemory::Write(std::size_t address, std::string_view data) {
    for (std::size_t i = 0; i < data.size(); ++i) {
        Set(address + i, static_cast<unsigned char>(data[i]));
    }
}

}  // namespace kestrane::unit
