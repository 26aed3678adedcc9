#include "unit/frame_parser.h"

#include <cstddef>
#include <utility>

namespace kestrane::unit {
namespace {

constexpr char kDle = 0x10;
constexpr char kStx = 0x02;
constexpr char kEtx = 0x03;

// The longest command is a write of 255 bytes: address, code, two address bytes, the count, the
// data and the checksum.
constexpr std::size_t kLongestText = 5 + 255 + 1;

char Sum(std::string_view text) {
    unsigned sum = 0;
    for (char c : text) sum += static_cast<unsigned char>(c);
    return static_cast<char>(static_cast<unsigned char>(sum & 0xFF));
}

void AppendDoubled(std::string& frame, char byte) {
    if (byte == kDle) frame.push_back(kDle);
    frame.push_back(byte);
}

}  // namespace

std::string EncodeFrame(std::string_view text) {
    std::string frame{kDle, kStx};
    frame.reserve(text.size() + 8);
    for (char c : text) AppendDoubled(frame, c);
    AppendDoubled(frame, Sum(text));
    frame.push_back(kDle);
    frame.push_back(kEtx);
    return frame;
}

std::vector<std::string> FrameParser::Feed(std::string_view bytes) {
    std::vector<std::string> texts;
    for (char byte : bytes) Take(byte, texts);
    return texts;
}

void FrameParser::Take(char byte, std::vector<std::string>& texts) {
    switch (state_) {
        case State::kOutside:
            if (byte == kDle) state_ = State::kOutsideAfterDle;
            return;
        case State::kOutsideAfterDle:
            // A doubled DLE is data of a frame that was given up, so that 10 10 02 starts nothing.
            state_ = byte == kStx ? State::kInside : State::kOutside;
            text_.clear();
            return;
        case State::kInside:
            if (byte == kDle) {
                state_ = State::kInsideAfterDle;
            } else {
                Append(byte);
            }
            return;
        case State::kInsideAfterDle:
            if (byte == kDle) {
                state_ = State::kInside;
                Append(byte);
            } else if (byte == kStx) {
                // The sender gave up and began afresh.
                state_ = State::kInside;
                text_.clear();
            } else {
                if (byte == kEtx) Finish(texts);
                state_ = State::kOutside;
            }
            return;
    }
}

void FrameParser::Append(char byte) {
    if (text_.size() == kLongestText) {
        state_ = State::kOutside;
        return;
    }
    text_.push_back(byte);
}

void FrameParser::Finish(std::vector<std::string>& texts) {
    constexpr std::size_t kAddressCodeChecksum = 3;
    if (text_.size() < kAddressCodeChecksum) return;
    const char checksum = text_.back();
    text_.pop_back();
    if (Sum(text_) == checksum) texts.push_back(std::move(text_));
    text_.clear();
}

}  // namespace kestrane::unit
