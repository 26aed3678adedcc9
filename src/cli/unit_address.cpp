#include "cli/unit_address.h"

#include <charconv>
#include <string_view>

namespace kestrane {
namespace {

std::optional<int> ParsePort(std::string_view text) {
    constexpr int kHighestPort = 65535;
    int port = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, port);
    const bool good = error == std::errc{} && rest == end && port >= 1 && port <= kHighestPort;
    return good ? std::optional(port) : std::nullopt;
}

}  // namespace

std::optional<UnitAddress> ParseUnitAddress(const std::string& text, std::string& error) {
    std::string host = text;
    std::string port;
    bool has_port = false;
    const std::size_t colon = text.rfind(':');
    if (!text.empty() && text.front() == '[') {
        const std::size_t end = text.find(']');
        const bool whole =
            end != std::string::npos && (end + 1 == text.size() || text[end + 1] == ':');
        if (!whole) {
            error = "\"" + text + "\" is no address; write [IPV6]:PORT";
            return {};
        }
        host = text.substr(1, end - 1);
        has_port = end + 1 < text.size();
        if (has_port) port = text.substr(end + 2);
    } else if (colon != std::string::npos && text.find(':') == colon) {
        host = text.substr(0, colon);
        port = text.substr(colon + 1);
        has_port = true;
    }
    if (host.empty() || host.find_first_of(" \t\r\n[]") != std::string::npos) {
        error = "\"" + text + "\" is no address; write HOST or HOST:PORT";
        return {};
    }
    UnitAddress address{host, {}};
    if (!has_port) return address;
    address.port = ParsePort(port);
    if (!address.port) {
        error = "\"" + port + "\" is no port; a port is a number from 1 to 65535";
        return {};
    }
    return address;
}

}  // namespace kestrane
