#include "text/text.h"

#include <gtest/gtest.h>

namespace kestrane {
namespace {

TEST(Text, MidCountsFromOneAndStopsAtTheEnd) {
    EXPECT_EQ(Mid("abcdef", 2, 3), "bcd");
    EXPECT_EQ(Mid("abcdef", 5, 9), "ef");
    EXPECT_EQ(Mid("abcdef", 7, 1), "");
    EXPECT_EQ(Mid("abcdef", 0, 1), "");
}

TEST(Text, TrimTakesBlanksAlone) {
    EXPECT_EQ(Trim("  a b \t "), "a b \t");
    EXPECT_EQ(Trim("    "), "");
    EXPECT_EQ(Trim(std::string_view("\0 ", 2)), std::string(1, '\0'));
}

TEST(Text, ValReadsTheLeadingNumber) {
    EXPECT_EQ(Val("12%4"), 12);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("x1"), 0);
    EXPECT_EQ(Val(" -3.5s"), -3.5);
    EXPECT_GT(Val("99999999999999999999"), 1e19);
    EXPECT_EQ(IntegerValue("99999999999999999999"), 2147483647);
    EXPECT_EQ(IntegerValue("4.5"), 4);
}

TEST(Text, HexadecimalTextsBothWays) {
    EXPECT_EQ(HexByte(0x0A), "0A");
    EXPECT_EQ(HexText(std::string_view("\x00\xFF", 2)), "00FF");
    EXPECT_EQ(HexNumber("61"), 0x61u);
    EXPECT_EQ(HexNumber("fg"), 15u);
    EXPECT_EQ(HexNumber("123456789A"), 0xFFFFFFFFu);
    EXPECT_EQ(HexPairs("0aG1FF"), std::string("\x0A\x00\xFF", 3));
}

TEST(Text, CleanHexGivesTwoDigitsOrZero) {
    std::string lower = "7f";
    EXPECT_EQ(CleanHex(lower), "7F");
    EXPECT_EQ(lower, "7F") << "the caller's text is upper-cased too";
    for (std::string text : {"7", "123", "", "G5", "5G"}) EXPECT_EQ(CleanHex(text), "00") << text;
    EXPECT_EQ(HexValue("G5"), 5);
    EXPECT_EQ(HexValue("7f"), 0x70);
    EXPECT_EQ(HexValue("123"), 0x13);
}

}  // namespace
}  // namespace kestrane
