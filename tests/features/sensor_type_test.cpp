#include <gtest/gtest.h>

#include "features/one_wire.h"

namespace kestrane {
namespace {

TEST(SensorType, EveryFamilyAndSubType) {
    for (int sub = 0; sub < 256; ++sub) {
        const std::string string_place = "TS-" + std::to_string(sub);
        EXPECT_EQ(SensorType(0x28, sub), sub == 0 ? "T" : sub <= 6 ? string_place : "??");
        EXPECT_EQ(SensorType(0x26, sub), sub == 0x00   ? "MS-T"
                                         : sub == 0x19 ? "MS-TH"
                                         : sub == 0x1B ? "MS-TL"
                                                       : "??");
        EXPECT_EQ(SensorType(0x10, sub), "");
    }
}

}  // namespace
}  // namespace kestrane
