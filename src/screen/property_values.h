#pragma once

// For the kinds of control alone: taking a script's value as what a property needs, and joining a
// kind's properties with the common ones.

#include <optional>
#include <string>

#include "screen/control.h"

namespace kestrane {

using MaybeError = std::optional<std::string>;

// The main property comes first, then those that every kind has, then the kind's others.
inline PropertyList Join(PropertyList first, const PropertyList& common,
                         const PropertyList& rest = {}) {
    first.insert(first.end(), common.begin(), common.end());
    first.insert(first.end(), rest.begin(), rest.end());
    return first;
}

inline bool IsMain(const std::string& property, const char* name) {
    return property.empty() || property == name;
}

template <class T>
const T* Is(const Value& value) {
    return std::get_if<T>(&value);
}

// A check box takes 0 and 1, true and false.
inline std::optional<bool> AsFlag(const Value& value) {
    if (const bool* flag = Is<bool>(value)) return *flag;
    const long* number = Is<long>(value);
    if (number && (*number == 0 || *number == 1)) return *number == 1;
    return {};
}

inline MaybeError AsInt(const Value& value, const std::string& property, int& result) {
    const long* number = Is<long>(value);
    if (!number || *number < -1'000'000'000 || *number > 1'000'000'000) {
        return property + " takes a number";
    }
    result = static_cast<int>(*number);
    return {};
}

}  // namespace kestrane
