// Any bytes as a state file of the demo unit: what is taken must come back from its own file.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "unit/state.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace kestrane::unit;
    const std::string_view file(reinterpret_cast<const char*>(bytes), size);
    const DecodedState decoded = DecodeState(file);
    if (decoded.boards.has_value() != decoded.error.empty()) std::abort();
    if (decoded.boards && EncodeState(*decoded.boards) != file) std::abort();
    return 0;
}
