#include "features/versions_page.h"

#include <algorithm>
#include <cstdint>

#include "text/text.h"

namespace kestrane {
namespace {

constexpr std::size_t kEntries = 13;
constexpr std::size_t kVersionPosition = 5;

struct EntryOfType {
    std::size_t entry;  // from 1
    std::string_view code;
};

// Entry 12 is not used.
// clang-format off
constexpr EntryOfType kTypes[] = {
    {1, "3A0"}, {2, "3A1"}, {3, "3A2"}, {4, "3A3"}, {5, "3A8"}, {6, "3A9"}, {7, "3AA"}, {8, "3AB"},
    {9, "3D0"}, {10, "3D1"}, {11, "3D3"}, {13, "3A5"},
};
// clang-format on

std::string LatestVersion(const std::vector<std::string>& entries, std::string_view code) {
    for (const EntryOfType& type : kTypes) {
        if (code != type.code || type.entry > entries.size()) continue;
        return Mid(entries[type.entry - 1], kVersionPosition);
    }
    return "-";
}

std::string WithThousands(std::size_t number) {
    std::string text = std::to_string(number);
    for (int i = static_cast<int>(text.size()) - 3; i > 0; i -= 3) {
        text.insert(static_cast<std::size_t>(i), ",");
    }
    return text;
}

}  // namespace

std::vector<std::string> EntriesOf(std::string_view page) {
    std::vector<std::string> entries;
    while (entries.size() < kEntries) {
        const std::size_t blank = std::min(page.find(' '), page.size());
        entries.emplace_back(page.substr(0, blank));
        page.remove_prefix(std::min(blank + 1, page.size()));
    }
    return entries;
}

std::string LatestRelayVersion(const std::vector<std::string>& entries, std::string_view code) {
    return LatestVersion(entries, code);
}

std::string LatestDisplayVersion(const std::vector<std::string>& entries, std::string_view code) {
    return code.starts_with("3D") ? LatestVersion(entries, code) : "-";
}

std::string DownloadSummary(std::size_t bytes, unsigned duration_ms) {
    // Bits per millisecond are kilobits per second; in tenths, a half rounded up.
    const std::uint64_t ms = duration_ms;
    const std::uint64_t tenths = (std::uint64_t{bytes} * 160 + ms) / (2 * ms);
    return WithThousands(bytes) + " bytes (" + std::to_string(tenths / 10) + "." +
           std::to_string(tenths % 10) + " kbps)";
}

}  // namespace kestrane
