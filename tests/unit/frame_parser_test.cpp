#include "unit/frame_parser.h"

#include <gtest/gtest.h>

#include "text/text.h"

namespace kestrane::unit {
namespace {

using Texts = std::vector<std::string>;

TEST(FrameParser, DoublesAndSumsAsTheWireShowsIt) {
    EXPECT_EQ(HexText(EncodeFrame(Bytes({0xFA, 0x11, 0x00, 0x00, 0x10}))),
              "1002FA1100001010"
              "1B1003");
    // The checksum itself may be a DLE: FA + 16 = 0x110.
    EXPECT_EQ(HexText(EncodeFrame(Bytes({0xFA, 0x16}))), "1002FA1610101003");
}

TEST(FrameParser, TakesFramesSplitAnywhereAndJoined) {
    const std::string first = Bytes({0x10, 0x12, 0x10, 0x10, 0x02, 0x10, 0x03});
    const std::string second = Bytes({0xFA, 0x16});
    const std::string stream = EncodeFrame(first) + EncodeFrame(second);
    for (std::size_t split = 0; split <= stream.size(); ++split) {
        FrameParser parser;
        Texts texts = parser.Feed(stream.substr(0, split));
        for (std::string& text : parser.Feed(stream.substr(split))) texts.push_back(text);
        EXPECT_EQ(texts, (Texts{first, second})) << "split at " << split;
    }
    FrameParser parser;
    Texts texts;
    for (char byte : stream) {
        for (std::string& text : parser.Feed({&byte, 1})) texts.push_back(text);
    }
    EXPECT_EQ(texts, (Texts{first, second}));
}

TEST(FrameParser, DropsWhatIsMalformedAndHearsTheNextFrame) {
    const std::string good = Bytes({0xFA, 0x31});
    for (const char* noise : {
             "1002FA312C1003",        // wrong checksum
             "1002FA31102B1003",      // a lone DLE inside
             "1002FA1003",            // too short for a code
             "10021003",              // empty
             "FA312B1003",            // no start mark
             "10021002",              // begun anew
             "1002FA10100231AA1003",  // a doubled DLE before 02 is data, not a start
         }) {
        FrameParser parser;
        EXPECT_EQ(parser.Feed(HexPairs(noise)), Texts{}) << noise;
        EXPECT_EQ(parser.Feed(EncodeFrame(good)), Texts{good}) << noise;
    }
}

TEST(FrameParser, HoldsTheLongestWriteAndNoEndlessFrame) {
    FrameParser parser;
    const std::string longest = Bytes({0xFA, 0x12, 0x00, 0x20, 0xFF}) + std::string(255, '\x10');
    EXPECT_EQ(parser.Feed(EncodeFrame(longest)), Texts{longest});
    EXPECT_EQ(parser.Feed(EncodeFrame(longest + "x")), Texts{});
    EXPECT_EQ(parser.Feed(EncodeFrame(longest)), Texts{longest});
}

}  // namespace
}  // namespace kestrane::unit
