#pragma once

// What an upload that did not come to its end has left in the unit, told from the journal.

#include <cstdint>
#include <string>

#include "link/journal.h"

namespace kestrane {

// "blocks 10 to 27 are new, the rest old", by macro addresses. A block whose answer has not come
// "may be either".
std::string WhatUnitHolds(const Journal& journal, std::uint64_t operation);

}  // namespace kestrane
