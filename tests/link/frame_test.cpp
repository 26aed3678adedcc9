#include "link/frame.h"

#include <gtest/gtest.h>

#include "text/text.h"

namespace kestrane {
namespace {

std::string Escaped(std::string text) {
    AddEscapesAndChecksum(text);
    return HexText(text);
}

TEST(Frame, ReadOfTheIdentityBlock) {
    std::string text = ReadCommand(0xFA, 0x0000);
    AddEscapesAndChecksum(text);
    EXPECT_EQ(HexText(FrameOf(text)), "1002FA11000010101B1003");
    EXPECT_EQ(FrameAsHex(text), "10 02 FA 11 00 00 10 10 1B 10 03");
}

TEST(Frame, ChecksumIsTakenBeforeDoublingAndDoubledItself) {
    EXPECT_EQ(Escaped(Bytes({0x10, 0x10})), "1010101020");
    EXPECT_EQ(Escaped(Bytes({0x0F, 0x01})), "0F011010");
    EXPECT_EQ(Escaped(Bytes({0xFF, 0x02})), "FF0201");
    EXPECT_EQ(Escaped(""), "00");
}

TEST(Frame, UndoublingTakesPairsFromTheLeft) {
    const auto undoubled = [](int count) {
        std::string text(static_cast<std::size_t>(count), kDle);
        RemoveEscapes(text);
        return text.size();
    };
    EXPECT_EQ(undoubled(1), 1u);
    EXPECT_EQ(undoubled(2), 1u);
    EXPECT_EQ(undoubled(3), 2u);
    EXPECT_EQ(undoubled(4), 2u);
}

}  // namespace
}  // namespace kestrane
