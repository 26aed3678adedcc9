// The drawing of a run: a row for each outlet with a bar while it is on, numbered lines where
// something came from outside, explained below.

#include <algorithm>
#include <array>
#include <cmath>

#include "macro/instruction_set.h"
#include "macro/timeline.h"

namespace kestrane {
namespace {

using simulation::Event;
using simulation::Milliseconds;
using simulation::SecondsText;
using simulation::Timeline;

constexpr double kLeft = 84;
constexpr double kWidth = 840;
constexpr double kRight = kLeft + kWidth;
constexpr double kFirstRow = 82;
constexpr double kRow = 22;
constexpr double kBar = 14;
constexpr double kBottom = kFirstRow + kRow * kOutletCount;
constexpr double kLegendLine = 18;
// Bars that are closer to each other than this are drawn as one.
constexpr double kLeastGap = 0.25;

// On paper and on light ground dark on white, on dark ground the other way round. A bar differs
// from its ground in brightness as well as in colour.
constexpr std::string_view kStyle = R"(<style>
.ground{fill:#ffffff}.text{fill:#1a1a1a}.grid{stroke:#c8ccd2}.row{stroke:#8a919c}
.bar{fill:#1f5fae;stroke:#123a6b}.input{stroke:#a33b00}.mark{fill:#a33b00}.loop{fill:#eceff4}
text{font:12px sans-serif}.title{font-weight:bold;font-size:14px}
@media screen and (prefers-color-scheme:dark){.ground{fill:#16181d}.text{fill:#eceff4}
.grid{stroke:#3a404b}.row{stroke:#7b8494}.bar{fill:#6cb0ff;stroke:#cfe4ff}.input{stroke:#ff9d5c}
.mark{fill:#ff9d5c}.loop{fill:#22262e}}
</style>
)";

std::string Number(double value) {
    const long hundredths = std::lround(value * 100);
    std::string text = std::to_string(hundredths / 100);
    if (hundredths % 100 != 0) {
        const std::string rest = std::to_string(100 + hundredths % 100);
        text += "." + rest.substr(1);
    }
    return text;
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '<') {
            escaped += "&lt;";
        } else if (c == '&') {
            escaped += "&amp;";
        } else if (c == '"') {
            escaped += "&quot;";
        } else if (byte >= 0x20 && byte != 0x7F) {
            escaped += c;
        }
    }
    return escaped;
}

std::string Text(double x, double y, std::string_view anchor, std::string_view kind,
                 std::string_view text) {
    return "<text class=\"" + std::string(kind) + "\" x=\"" + Number(x) + "\" y=\"" + Number(y) +
           "\" text-anchor=\"" + std::string(anchor) + "\">" + Escaped(text) + "</text>\n";
}

std::string Line(std::string_view kind, double x1, double y1, double x2, double y2,
                 std::string_view more = {}) {
    return "<line class=\"" + std::string(kind) + "\" x1=\"" + Number(x1) + "\" y1=\"" +
           Number(y1) + "\" x2=\"" + Number(x2) + "\" y2=\"" + Number(y2) + "\"" +
           std::string(more) + "/>\n";
}

std::string Rect(std::string_view kind, double x, double y, double width, double height) {
    return "<rect class=\"" + std::string(kind) + "\" x=\"" + Number(x) + "\" y=\"" + Number(y) +
           "\" width=\"" + Number(width) + "\" height=\"" + Number(height) + "\"/>\n";
}

class Drawing {
  public:
    Drawing(const Timeline& timeline, std::string_view title)
        : timeline_(timeline),
          title_(title),
          // A little more than the run, so that what it ends with can be seen.
          span_(1.04 * static_cast<double>(std::max<long>(timeline.end.count(), 1))) {}

    std::string Svg();

  private:
    double X(Milliseconds at) const {
        return kLeft + kWidth * static_cast<double>(at.count()) / span_;
    }
    void Axis();
    void Loop();
    void Row(int outlet);
    void Bar(int outlet, double from, double to);
    void Inputs();
    void Legend();
    std::string Ending() const;

    const Timeline& timeline_;
    std::string_view title_;
    double span_;  // milliseconds
    std::vector<std::string> legend_;
    std::string body_;
};

// The least round step in milliseconds with at most ten ticks.
long Step(double span) {
    constexpr std::array<long, 24> kSteps = {
        1,       2,       5,       10,        20,        50,        100,       200,
        500,     1'000,   2'000,   5'000,     10'000,    20'000,    30'000,    60'000,
        120'000, 300'000, 600'000, 1'200'000, 1'800'000, 3'600'000, 7'200'000, 10'800'000};
    for (const long step : kSteps) {
        if (static_cast<double>(step) * 10 >= span) return step;
    }
    constexpr double kHour = 3'600'000;
    return std::lround(std::ceil(span / 10 / kHour) * kHour);
}

std::string TickText(long ms, long step) {
    if (step < 1000) return SecondsText(Milliseconds{ms});
    const long seconds = ms / 1000;
    if (step < 60'000) return std::to_string(seconds);
    const std::string minutes = std::to_string(100 + seconds / 60 % 60).substr(1);
    const std::string rest = std::to_string(100 + seconds % 60).substr(1);
    return std::to_string(seconds / 3600) + ":" + minutes + ":" + rest;
}

void Drawing::Axis() {
    const long step = Step(span_);
    for (long ms = 0; static_cast<double>(ms) <= span_; ms += step) {
        const double x = X(Milliseconds{ms});
        body_ += Line("grid", x, kFirstRow, x, kBottom);
        body_ += Text(x, kBottom + 16, "middle", "text", TickText(ms, step));
    }
    body_ += Text(kLeft - 32, kBottom + 16, "end", "text", step < 60'000 ? "s" : "h:min:s");
}

void Drawing::Loop() {
    if (!timeline_.repeats) return;
    const double from = X(timeline_.repeats->from);
    body_ += Rect("loop", from, kFirstRow, X(timeline_.end) - from, kBottom - kFirstRow);
}

void Drawing::Bar(int outlet, double from, double to) {
    const double y = kFirstRow + kRow * (outlet - 1) + (kRow - kBar) / 2;
    body_ += Rect("bar", from, y, std::max(to - from, 0.5), kBar);
}

void Drawing::Row(int outlet) {
    const double middle = kFirstRow + kRow * (outlet - 0.5);
    body_ += "<g id=\"outlet-" + std::to_string(outlet) + "\">\n";
    body_ += Text(kLeft - 10, middle + 4, "end", "text", "Outlet " + std::to_string(outlet));
    body_ += Line("row", kLeft, middle, kRight, middle);
    const auto bit = static_cast<std::uint16_t>(1 << (outlet - 1));
    bool on = (timeline_.start.outlets_on & bit) != 0;
    double from = kLeft;
    double to = -1;  // where a bar ended that may go on
    for (const Event& event : timeline_.events) {
        if (!on && (event.on & bit) != 0) {
            const double x = X(event.at);
            if (to < 0 || x - to >= kLeastGap) {
                if (to >= 0) Bar(outlet, from, to);
                from = x;
            }
            on = true;
        } else if (on && (event.off & bit) != 0) {
            to = X(event.at);
            on = false;
        }
    }
    if (on) to = kRight;
    if (to >= 0) Bar(outlet, from, to);
    body_ += "</g>\n";
}

void Drawing::Inputs() {
    constexpr double kClose = 14;
    double last = -kClose;
    for (const Event& event : timeline_.events) {
        if (event.address) continue;
        const double x = X(event.at);
        const std::string number = std::to_string(legend_.size() + 1);
        legend_.push_back(number + ": " + SecondsText(event.at) + "  " + event.words);
        body_ += Line("input", x, kFirstRow - 6, x, kBottom,
                      " stroke-width=\"1.5\" stroke-dasharray=\"4 3\"");
        // A second row keeps the numbers of two close inputs apart.
        const bool close = x - last < kClose;
        body_ += Text(x, kFirstRow - (close ? 22 : 10), "middle", "mark", number);
        last = close ? -kClose : x;
    }
}

void Drawing::Legend() {
    double y = kBottom + 40;
    for (const std::string& line : legend_) {
        body_ += Text(kLeft, y, "start", "text", line);
        y += kLegendLine;
    }
}

std::string Drawing::Ending() const {
    std::string text;
    if (timeline_.repeats) {
        text = "repeats every " + SecondsText(timeline_.repeats->every) + " s from " +
               SecondsText(timeline_.repeats->from) + " s";
    } else {
        text = timeline_.why == Timeline::Why::kStop ? "stops at " : "cut at ";
        text += SecondsText(timeline_.end) + " s";
    }
    return text +
           "; most outlets switched on within a second: " + std::to_string(timeline_.most_on.count);
}

std::string Drawing::Svg() {
    Loop();
    Axis();
    for (int outlet = 1; outlet <= kOutletCount; ++outlet) Row(outlet);
    Inputs();
    Legend();
    const double height = kBottom + 34 + kLegendLine * static_cast<double>(legend_.size());
    const std::string size = Number(kRight + 36) + "\" height=\"" + Number(height);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + size + "\" viewBox=\"0 0 " +
           Number(kRight + 36) + " " + Number(height) + "\" role=\"img\">\n<title>" +
           Escaped(title_) + "</title>\n" + std::string(kStyle) +
           Rect("ground", 0, 0, kRight + 36, height) +
           Text(kLeft, 22, "start", "text title", title_) +
           Text(kLeft, 40, "start", "text", "demo unit; " + Ending()) + body_ + "</svg>\n";
}

}  // namespace

std::string TimelineAsSvg(const Timeline& timeline, std::string_view title) {
    return Drawing(timeline, title).Svg();
}

}  // namespace kestrane
