#include "link/frame.h"

#include "text/text.h"

namespace kestrane {

void AddEscapesAndChecksum(std::string& text) {
    std::string escaped;
    escaped.reserve(text.size() + 8);
    unsigned sum = 0;
    for (const char c : text) {
        if (c == kDle) escaped.push_back(kDle);
        escaped.push_back(c);
        sum += static_cast<unsigned char>(c);
    }
    const char checksum = static_cast<char>(sum & 0xFF);
    escaped.push_back(checksum);
    if (checksum == kDle) escaped.push_back(kDle);
    text = std::move(escaped);
}

void RemoveEscapes(std::string& text) {
    std::string plain;
    plain.reserve(text.size());
    bool after_dle = false;
    for (const char c : text) {
        if (c == kDle && after_dle) {
            after_dle = false;  // a third 0x10 counts as a new first one
            continue;
        }
        plain.push_back(c);
        after_dle = c == kDle;
    }
    text = std::move(plain);
}

std::string DataOfReply(std::string_view reply, std::size_t position) {
    std::string plain(reply.substr(0, 2));
    std::size_t at = plain.size();
    while (at < reply.size()) {
        const bool pair = reply[at] == kDle && at + 1 < reply.size();
        if (pair && reply[at + 1] == kEtx) {
            plain.pop_back();
            break;
        }
        plain.push_back(reply[at]);
        at += pair && reply[at + 1] == kDle ? 2 : 1;
    }
    return Mid(plain, position);
}

std::string FrameOf(std::string_view escaped) {
    std::string frame{kDle, kStx};
    frame += escaped;
    frame += kDle;
    frame += kEtx;
    return frame;
}

std::string FrameAsHex(std::string_view escaped) {
    std::string hex = "10 02";
    for (const char c : escaped) hex += " " + HexByte(static_cast<std::uint8_t>(c));
    return hex + " 10 03";
}

std::string ReadCommand(int board, int address, int count) {
    return Bytes({board, kReadMemory, address >> 8, address, count});
}

std::string WriteCommand(int board, int address, int count, std::string_view data) {
    return Bytes({board, kWriteMemory, address >> 8, address, count}) + std::string(data);
}

}  // namespace kestrane
