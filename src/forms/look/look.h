#pragma once

// How the windows look: the Fusion style in a light or a dark palette, and the screen's colours
// made readable on either. The one thing to know: a colour of the model names a meaning (black is
// "normal", red "bad"), and is shifted in lightness, never in hue, until it can be read.

#include <QColor>
#include <QPalette>

#include "screen/control.h"

namespace kestrane {

enum class Look { kSystem, kLight, kDark };

// Sets style and palette of the application. With kSystem the look follows the system's from
// then on.
void ApplyLook(Look look);

// Sets the icon of the windows. It is drawn by a plugin whose loading can wait until a window is
// up.
void ApplyIcon();

// Takes over the system's look where it has become light or dark since.
void FollowSystem();

// Red, green and blue of a colour; the system's face colours, which have no value of their own,
// are not valid colours.
QColor ToQColor(Colour colour);

bool IsDark(const QPalette& palette);

// Colours by role; none of them is the only sign of what it means.
QColor GoodColour(const QPalette& palette);
QColor WarningColour(const QPalette& palette);
QColor FaultColour(const QPalette& palette);
QColor ChangedColour(const QPalette& palette);
// A button that is the one thing to do.
QPalette PrimaryPalette(QPalette palette);

// Contrast of two colours, 1 to 21.
double Contrast(const QColor& a, const QColor& b);

// `colour` made lighter or darker until it can be read on `background`.
QColor Readable(const QColor& colour, const QColor& background);

// The palette of a control that stands on `palette`, with its colours set for each state. A label
// that is disabled is grey, whatever the colour says about a value that is not there.
QPalette LabelPalette(const QPalette& palette, std::optional<Colour> fore,
                      std::optional<Colour> back);
QPalette BoxPalette(const QPalette& palette, std::optional<Colour> fore,
                    std::optional<Colour> back);
QPalette ButtonPalette(const QPalette& palette, std::optional<Colour> fore,
                       std::optional<Colour> back);

}  // namespace kestrane
