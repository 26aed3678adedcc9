#pragma once

// The frame of the control port, as pure functions on byte texts.
//
//   10 02 | address code arguments ... checksum | 10 03
//
// Between the marks every 0x10 is sent twice. The checksum is the low 8 bits of the sum of
// address, code and arguments, taken before doubling.

#include <string>
#include <string_view>

namespace kestrane {

inline constexpr char kDle = 0x10;
inline constexpr char kStx = 0x02;
inline constexpr char kEtx = 0x03;

// Command codes.
inline constexpr int kReadMemory = 0x11;
inline constexpr int kWriteMemory = 0x12;
inline constexpr int kEnterBootloader = 0x15;
inline constexpr int kResetEthernet = 0x1F;
inline constexpr int kReadSerialNumber = 0x21;
inline constexpr int kWriteUnitID = 0x23;
inline constexpr int kReadFirmwareVersion = 0x28;
inline constexpr int kReadLiveStatus = 0x31;
inline constexpr int kReadSecondStatus = 0x39;
inline constexpr int kWriteLiveData = 0x3A;
inline constexpr int kReadUnitType = 0x41;
inline constexpr int kMacroGoTo = 0x61;
inline constexpr int kOneWireReset = 0x81;
inline constexpr int kOneWireMemory = 0x82;

// The first argument of kOneWireMemory that only reads.
inline constexpr int kOneWireReadLive = 0x01;

// The code of a refusal, at position 5 of a reply.
inline constexpr int kRefusedByPrivileges = 0x16;
inline constexpr int kRefusedByOneWire = 0x15;

// The first data byte of a memory read, and of a command without arguments, in an undoubled reply.
inline constexpr std::size_t kMemoryData = 8;  // positions count from 1
inline constexpr std::size_t kStatusData = 5;
inline constexpr int kBlockSize = 16;

// Doubles each 0x10 of `text` and appends the checksum, doubled likewise.
void AddEscapesAndChecksum(std::string& text);

// Drops the second of each pair of 0x10.
void RemoveEscapes(std::string& text);

// The data of a reply that may be cut off anywhere: from this position of the undoubled text on,
// without the checksum that stands before an end mark.
std::string DataOfReply(std::string_view reply, std::size_t position);

// The start mark, an escaped text, the end mark.
std::string FrameOf(std::string_view escaped);

// An escaped text with its marks as hexadecimal bytes: "10 02 FA ... 10 03".
std::string FrameAsHex(std::string_view escaped);

// A read or write of memory, as SendCommand takes it.
std::string ReadCommand(int board, int address, int count = kBlockSize);
std::string WriteCommand(int board, int address, int count, std::string_view data);

}  // namespace kestrane
