#include "forms/look/look.h"

#include <QApplication>
#include <QIcon>
#include <algorithm>
#include <cmath>

#include "forms/look/style.h"

// A static library's resources are linked only where they are asked for.
static void InitResources() { Q_INIT_RESOURCE(look); }

namespace kestrane {
namespace {

constexpr double kReadable = 4.5;
constexpr Colour kSystemColours = 0x80000000;

double Luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor Mix(const QColor& a, const QColor& b, double part_of_b) {
    const auto mix = [part_of_b](float x, float y) {
        return static_cast<float>(x + (y - x) * part_of_b);
    };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                            mix(a.blueF(), b.blueF()));
}

// The style draws tab pages and buttons lighter than the button colour where that is dark.
QColor Raised(const QPalette& palette) {
    const QColor button = palette.color(QPalette::Button);
    return IsDark(palette) ? button.lighter(130) : button;
}

// Disabled texts stand back, but can still be read.
void SetDisabledTexts(QPalette& palette) {
    const QColor raised = Raised(palette);
    const QColor base = palette.color(QPalette::Disabled, QPalette::Base);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        const QColor ground = role == QPalette::Text ? base : raised;
        const QColor faint = Mix(palette.color(QPalette::Active, role), ground, 0.5);
        palette.setColor(QPalette::Disabled, role, Readable(faint, ground));
    }
}

// Whether the look is the desktop's, and not one that was asked for.
bool follows_system = false;

// What the desktop says, whatever palette the application has set.
bool SystemIsDark() {
    const QPalette own = QApplication::palette();
    QApplication::setPalette(QPalette());
    const bool dark = IsDark(QApplication::palette());
    QApplication::setPalette(own);
    return dark;
}

QPalette LightPalette() {
    QPalette palette(QColor(0xE4, 0xE7, 0xEB), QColor(0xF3, 0xF4, 0xF6));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xF7, 0xF8, 0xFA));
    palette.setColor(QPalette::Highlight, QColor(0x1F, 0x6F, 0xC4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(0x66, 0x6C, 0x74));
    palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xE6));
    palette.setColor(QPalette::ToolTipText, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xEE, 0xF0, 0xF2));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xB4, 0xBA, 0xC2));
    SetDisabledTexts(palette);
    return palette;
}

QPalette DarkPalette() {
    QPalette palette(QColor(0x2F, 0x33, 0x39), QColor(0x25, 0x28, 0x2D));
    palette.setColor(QPalette::WindowText, QColor(0xE8, 0xEA, 0xED));
    palette.setColor(QPalette::Text, QColor(0xE8, 0xEA, 0xED));
    palette.setColor(QPalette::ButtonText, QColor(0xE8, 0xEA, 0xED));
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Base, QColor(0x1A, 0x1D, 0x21));
    palette.setColor(QPalette::AlternateBase, QColor(0x20, 0x23, 0x28));
    palette.setColor(QPalette::Highlight, QColor(0x3B, 0x82, 0xD6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(0x9A, 0xA0, 0xA8));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3A, 0x3F, 0x46));
    palette.setColor(QPalette::ToolTipText, QColor(0xE8, 0xEA, 0xED));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0x25, 0x28, 0x2D));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x55, 0x5B, 0x63));
    SetDisabledTexts(palette);
    return palette;
}

void SetText(QPalette& palette, QPalette::ColorRole text, QPalette::ColorRole ground,
             const QColor& colour) {
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor ground_colour = ground == QPalette::Window && IsDark(palette)
                                         ? Raised(palette)
                                         : palette.color(group, ground);
        const QColor wanted =
            group == QPalette::Disabled ? Mix(colour, ground_colour, 0.3) : colour;
        palette.setColor(group, text, Readable(wanted, ground_colour));
    }
}

// A back colour in the tone of the palette: full ones are softened, and dark surroundings get
// the dark shade of the same hue.
QColor Ground(const QColor& colour, const QPalette& palette) {
    if (!IsDark(palette)) return Mix(colour, Qt::white, colour.saturationF() > 0.9f ? 0.35 : 0.0);
    return QColor::fromHslF(std::max(0.0f, colour.hslHueF()), 0.12f + 0.4f * colour.saturationF(),
                            0.27f);
}

void SetGround(QPalette& palette, QPalette::ColorRole text, QPalette::ColorRole ground,
               const QColor& colour) {
    const QColor shade = Ground(colour, palette);
    const QColor window = palette.color(QPalette::Window);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const bool disabled = group == QPalette::Disabled;
        const QColor back = disabled ? Mix(shade, window, 0.55) : shade;
        palette.setColor(group, ground, back);
        palette.setColor(group, text, Readable(palette.color(group, text), back));
    }
}

bool Normal(std::optional<Colour> fore) {
    return !fore || *fore == kBlack || !ToQColor(*fore).isValid();
}

QPalette WithColours(QPalette palette, QPalette::ColorRole text, QPalette::ColorRole ground,
                     std::optional<Colour> fore, std::optional<Colour> back) {
    if (back && ToQColor(*back).isValid()) SetGround(palette, text, ground, ToQColor(*back));
    if (!Normal(fore)) SetText(palette, text, ground, ToQColor(*fore));
    return palette;
}

}  // namespace

void ApplyLook(Look look) {
    follows_system = look == Look::kSystem;
    const bool dark = look == Look::kDark || (follows_system && SystemIsDark());
    QApplication::setStyle(new LookStyle);
    QApplication::setPalette(dark ? DarkPalette() : LightPalette());
}

void ApplyIcon() {
    InitResources();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/kestrane.svg")));
}

void FollowSystem() {
    if (!follows_system) return;
    const bool dark = SystemIsDark();
    if (dark == IsDark(QApplication::palette())) return;
    QApplication::setPalette(dark ? DarkPalette() : LightPalette());
}

QColor ToQColor(Colour colour) {
    if (colour & kSystemColours) return {};
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                  static_cast<int>(colour >> 16 & 0xFF));
}

QColor GoodColour(const QPalette& palette) {
    return IsDark(palette) ? QColor(0x4C, 0xC2, 0x6A) : QColor(0x1E, 0x7B, 0x34);
}

QColor WarningColour(const QPalette& palette) {
    return IsDark(palette) ? QColor(0xF0, 0xA8, 0x3C) : QColor(0x9A, 0x5B, 0x00);
}

QColor FaultColour(const QPalette& palette) {
    return IsDark(palette) ? QColor(0xFF, 0x7B, 0x72) : QColor(0xC6, 0x22, 0x22);
}

QColor ChangedColour(const QPalette& palette) {
    return IsDark(palette) ? QColor(0x5A, 0xA9, 0xFF) : QColor(0x1F, 0x6F, 0xC4);
}

QPalette PrimaryPalette(QPalette palette) {
    const QColor fill = IsDark(palette) ? QColor(0x2F, 0x6F, 0xB8) : QColor(0x1F, 0x66, 0xB5);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Button, fill);
        palette.setColor(group, QPalette::ButtonText, Qt::white);
    }
    return palette;
}

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

double Contrast(const QColor& a, const QColor& b) {
    const double first = Luminance(a) + 0.05;
    const double second = Luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor Readable(const QColor& colour, const QColor& background) {
    const bool lighten = Contrast(Qt::white, background) > Contrast(Qt::black, background);
    QColor shade = colour;
    for (int step = 0; step < 20 && Contrast(shade, background) < kReadable; ++step) {
        const float lightness = shade.lightnessF() + (lighten ? 0.05f : -0.05f);
        shade = QColor::fromHslF(std::max(0.0f, shade.hslHueF()), shade.hslSaturationF(),
                                 std::clamp(lightness, 0.0f, 1.0f));
    }
    return shade;
}

QPalette LabelPalette(const QPalette& palette, std::optional<Colour> fore,
                      std::optional<Colour> back) {
    QPalette made = WithColours(palette, QPalette::WindowText, QPalette::Window, fore, back);
    if (!back) {
        made.setColor(QPalette::Disabled, QPalette::WindowText,
                      palette.color(QPalette::Disabled, QPalette::WindowText));
    }
    return made;
}

QPalette BoxPalette(const QPalette& palette, std::optional<Colour> fore,
                    std::optional<Colour> back) {
    return WithColours(palette, QPalette::Text, QPalette::Base, fore, back);
}

QPalette ButtonPalette(const QPalette& palette, std::optional<Colour> fore,
                       std::optional<Colour> back) {
    return WithColours(palette, QPalette::ButtonText, QPalette::Button, fore, back);
}

}  // namespace kestrane
