// Any bytes as the page of the versions server: its entries come out of the page itself.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "features/versions_page.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace kestrane;
    const std::string_view page(reinterpret_cast<const char*>(bytes), size);
    const std::vector<std::string> entries = EntriesOf(page);
    for (const std::string& entry : entries) {
        if (page.find(entry) == std::string_view::npos) std::abort();
    }
    for (const char* code : {"3A0", "3A1", "3B0", "2F0", "", "ZZZ"}) {
        LatestRelayVersion(entries, code);
        LatestDisplayVersion(entries, code);
    }
    return 0;
}
