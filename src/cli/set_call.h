#pragma once

// `kestrane-cli set NAME=VALUE ...`: types values into the tabs as an operator would and writes
// those tabs. Nothing is written unless every value stands as it was given.

#include "cli/call.h"

namespace kestrane {

std::unique_ptr<Call> MakeSetCall();

}  // namespace kestrane
