#pragma once

// Property values as JSON and out of a console word. The type of a property decides what a word
// means: `12` is a text for a text box and a number for a scroll bar.

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "console/words.h"
#include "screen/control.h"

namespace kestrane {

using Json = nlohmann::ordered_json;

Json ToJson(const Value& value);

// One line of ASCII.
std::string ToLine(const Json& json);

struct Converted {
    std::optional<Value> value;
    std::string error;  // why there is none
};

// The word as a value of the type that `present` has. Flags take true, false, 1 and 0; so does a
// number. A colour that was never set takes a number or null.
Converted ConvertWord(const Word& word, const Value& present);

bool SameValue(const Value& left, const Value& right);

}  // namespace kestrane
