#pragma once

// `kestrane-cli macro list|check|download|upload FILE`: macro files looked at without a unit, and
// programs moved between a file and a unit.

#include "cli/call.h"

namespace kestrane {

std::unique_ptr<Call> MakeMacroCall();

}  // namespace kestrane
