// Any bytes from a client of the demo unit, whole and one byte at a time: both must give the same
// replies, each of them a frame.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "unit/unit.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace kestrane::unit;
    const std::string_view input(reinterpret_cast<const char*>(bytes), size);
    Unit whole;
    Unit pieces;
    const std::string replies = whole.Receive(1, input, {});
    std::string joined;
    for (const char byte : input) joined += pieces.Receive(1, std::string_view(&byte, 1), {});
    if (joined != replies) std::abort();
    if (!replies.empty() && !(replies.starts_with("\x10\x02") && replies.ends_with("\x10\x03"))) {
        std::abort();
    }
    return 0;
}
