#pragma once

// Distances and sizes of type that every window shares, in logical pixels.

#include <QFont>

namespace kestrane {

inline constexpr int kGap = 8;
inline constexpr int kSmallGap = 4;
inline constexpr int kMargin = 10;
inline constexpr int kBetweenFrames = 12;

// The smallest window that everything must fit into.
inline constexpr int kSmallestWidth = 1024;
inline constexpr int kSmallestHeight = 720;

// A head of a frame or a table.
QFont HeadFont(QFont font);
// The name of the unit.
QFont TitleFont(QFont font);
// Bytes, addresses, keys.
QFont FixedPitch();

}  // namespace kestrane
