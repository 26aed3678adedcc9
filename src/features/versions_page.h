#pragma once

// The page of the versions server: entries with single blanks between them, each 4 characters of
// prefix and a version text. The place of an entry in the page says which board type it is for:
//
//   xxxx1.2.3 xxxx1.4.0 ...      entry 1 for 3A0, entry 2 for 3A1, ...

#include <string>
#include <string_view>
#include <vector>

namespace kestrane {

// The first 13 entries; those that the page doesn't have are empty.
std::vector<std::string> EntriesOf(std::string_view page);

// The latest version for a board's type code; empty where the page has no such entry, "-" for a
// code without one. Display boards are found among their own codes alone.
std::string LatestRelayVersion(const std::vector<std::string>& entries, std::string_view code);
std::string LatestDisplayVersion(const std::vector<std::string>& entries, std::string_view code);

// "1,234 bytes (56.7 kbps)". The duration is above 0.
std::string DownloadSummary(std::size_t bytes, unsigned duration_ms);

}  // namespace kestrane
