#pragma once

// Where a unit is reached.

#include <optional>
#include <string>

namespace kestrane {

struct UnitAddress {
    std::string host;
    std::optional<int> port;
};

// HOST, HOST:PORT, [V6]:PORT or a bare IPv6 address. Nothing, with the reason in `error`, for
// anything else.
std::optional<UnitAddress> ParseUnitAddress(const std::string& text, std::string& error);

}  // namespace kestrane
