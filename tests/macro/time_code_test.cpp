#include "macro/time_code.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kestrane {
namespace {

TEST(TimeCode, TextsOfCodes) {
    const std::pair<int, const char*> texts[] = {
        {0x00, "0.0"},    {0x01, "0.1"},   {0x05, "0.5"}, {0x0A, "1.0"},   {0x0B, "1.1"},
        {0x3F, "6.3"},    {0x40, "0.0"},   {0x41, "1.0"}, {0x7F, "63.0"},  {0x80, "0.0"},
        {0x81, "10.0"},   {0xBF, "630.0"}, {0xC0, "0.0"}, {0xC1, "100.0"}, {0xC6, "600.0"},
        {0xCA, "1000.0"}, {0xFF, "6300.0"}};
    for (const auto& [code, text] : texts) {
        EXPECT_EQ(TimeText(static_cast<std::uint8_t>(code)), text) << code;
    }
}

TEST(TimeCode, RoundsInStagesAndMayEndBelowTheEntry) {
    const std::pair<const char*, int> codes[] = {{"0", 0x00},
                                                 {"0.04", 0x00},
                                                 {"0.05", 0x01},
                                                 {"0.25", 0x03},
                                                 {"6.3", 0x3F},
                                                 {"6.34", 0x3F},
                                                 {"6.35", 0x46},
                                                 {"6.4", 0x46},
                                                 {"6.5", 0x47},
                                                 {"63", 0x7F},
                                                 {"63.4", 0x7F},
                                                 {"63.5", 0x86},
                                                 {"63.6", 0x86},
                                                 {"65", 0x87},
                                                 {"630", 0xBF},
                                                 {"634", 0xBF},
                                                 {"634.5", 0xC6},
                                                 {"635", 0xC6},
                                                 {"650", 0xC7},
                                                 {"649", 0xC7},
                                                 {"6300", 0xFF},
                                                 {"6300.1", 0xFF},
                                                 {"99999", 0xFF},
                                                 {"1e9", 0x0A},
                                                 {" 12 s", 0x4C},
                                                 {"", 0x00},
                                                 {"abc", 0x00},
                                                 {".5", 0x05},
                                                 {"5.", 0x32},
                                                 {"-0", 0x00},
                                                 {"999999999999999999999999999999", 0xFF}};
    for (const auto& [text, code] : codes) EXPECT_EQ(TimeCode(text), code) << text;
    EXPECT_EQ(TimeCode(std::string(400, '9')), 0xFF);
}

TEST(TimeCode, RefusesNegativeNumbers) {
    for (const char* text : {"-1", "-0.01", " -6300", "-0.1"}) {
        EXPECT_EQ(TimeCode(text), std::nullopt) << text;
    }
}

TEST(TimeCode, EveryShownTextIsHeldExactly) {
    for (int code = 0; code < 256; ++code) {
        const std::string text = TimeText(static_cast<std::uint8_t>(code));
        const auto again = TimeCode(text);
        ASSERT_TRUE(again) << text;
        EXPECT_EQ(TimeText(*again), text) << code;
    }
}

}  // namespace
}  // namespace kestrane
