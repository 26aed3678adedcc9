#include "cli/call_options.h"

#include <CLI/CLI.hpp>
#include <cmath>

#include "console/words.h"

namespace kestrane {
namespace {

constexpr int kHighestPort = 65535;
constexpr double kLongestTimeout = 3600;

bool IsUrlOfServer(const std::string& url) {
    for (const std::string scheme : {"http://", "https://"}) {
        if (url.compare(0, scheme.size(), scheme) == 0) return url.size() > scheme.size();
    }
    return false;
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
    address.port = WordAsInt({port}, 1, kHighestPort);
    if (!address.port) {
        error = "\"" + port + "\" is no port; a port is a number from 1 to 65535";
        return {};
    }
    return address;
}

void CallOptions::AddTo(CLI::App& app) {
    app.add_option("--unit", unit_text_,
                   "HOST[:PORT] of the unit (the tool's default address and port)");
    app.add_option("--timeout", timeout_text_, "Seconds to wait for a reply, and for a connection");
    app.add_option("--versions-url", versions_url_,
                   "Root of the versions server: the page is URL/kestraneversions/");
    app.add_flag("--demo", demo_, "Start a demo unit on free loopback ports and use that");
}

std::string CallOptions::Check() {
    std::string error;
    if (demo_ && !unit_text_.empty()) return "--demo and --unit exclude each other; give one";
    if (!unit_text_.empty()) {
        unit_ = ParseUnitAddress(unit_text_, error);
        if (!unit_) return "--unit: " + error;
    }
    if (!timeout_text_.empty()) {
        const auto seconds = WordAsSeconds({timeout_text_});
        if (!seconds || *seconds < 0.001 || *seconds > kLongestTimeout) {
            return "--timeout: \"" + timeout_text_ +
                   "\" is no time; give seconds from 0.001 to 3600";
        }
        timeout_ = static_cast<int>(std::lround(*seconds * 1000));
    }
    if (!versions_url_.empty()) {
        if (!IsUrlOfServer(versions_url_)) {
            return "--versions-url: \"" + versions_url_ +
                   "\" does not begin with http:// or https://";
        }
        tool_options_.versions_url = versions_url_;
    }
    return {};
}

void CallOptions::UseDemo(int port, int versions_port) {
    unit_ = UnitAddress{"127.0.0.1", port};
    if (!has_versions_url()) {
        tool_options_.versions_url = "http://127.0.0.1:" + std::to_string(versions_port);
    }
}

void CallOptions::Apply(Tool& tool) const {
    MainForm& form = tool.main_form;
    if (unit_) {
        form.txtCurrentIPAddress.SetText(unit_->host);
        if (unit_->port) form.txtCurrentPort.SetText(std::to_string(*unit_->port));
    }
    if (timeout_) {
        form.txtTimeout.SetText(timeout_text_);
        form.timTimeout.SetInterval(*timeout_);
    }
}

}  // namespace kestrane
