#pragma once

// Byte texts at the face: one byte is one Latin-1 character, in both directions. Positions and
// lengths are therefore the same on the screen and in the model.

#include <QString>
#include <optional>
#include <string>

namespace kestrane {

inline QString ToQt(const std::string& text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// Nothing for a character that has no byte.
inline std::optional<char> ToByte(QChar character) {
    if (character.unicode() > 0xFF) return {};
    return static_cast<char>(character.unicode());
}

// For texts that are only read: lines break at "\n".
inline QString ToQtLines(const std::string& text) {
    return ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

}  // namespace kestrane
