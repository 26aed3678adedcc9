#include "cli/call_options.h"

#include <CLI/CLI.hpp>
#include <cmath>

#include "console/words.h"

namespace kestrane {
namespace {

constexpr double kLongestTimeout = 3600;

bool IsUrlOfServer(const std::string& url) {
    for (const std::string scheme : {"http://", "https://"}) {
        if (url.compare(0, scheme.size(), scheme) == 0) return url.size() > scheme.size();
    }
    return false;
}

// "2.5" for 2500.
std::string SecondsText(int milliseconds) {
    std::string text = std::to_string(milliseconds / 1000);
    const int rest = milliseconds % 1000;
    if (rest != 0) text += "." + std::to_string(1000 + rest).substr(1);
    return text;
}

}  // namespace

void RefuseEmptyValues(CLI::App& app) {
    const auto check = [](const std::string& value) {
        return value.empty() ? "takes a value" : "";
    };
    for (CLI::Option* option : app.get_options()) {
        if (option->get_items_expected_max() > 0) option->check(check, "");
    }
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

std::string CallOptions::Address(const Tool& tool) const {
    const std::string host = unit_ ? unit_->host : tool.main_form.txtCurrentIPAddress.Text();
    const std::string port =
        unit_ && unit_->port ? std::to_string(*unit_->port) : tool.main_form.txtCurrentPort.Text();
    return (host.find(':') == std::string::npos ? host : "[" + host + "]") + ":" + port;
}

void CallOptions::Apply(Tool& tool) const {
    MainForm& form = tool.main_form;
    if (unit_) {
        form.txtCurrentIPAddress.SetText(unit_->host);
        if (unit_->port) form.txtCurrentPort.SetText(std::to_string(*unit_->port));
    }
    if (timeout_) {
        // In the one notation that the box and this program read alike.
        form.txtTimeout.SetText(SecondsText(*timeout_));
        form.timTimeout.SetInterval(*timeout_);
    }
}

}  // namespace kestrane
