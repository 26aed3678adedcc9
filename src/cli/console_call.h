#pragma once

// `kestrane-cli console`: every control by name, for scripts.

#include "cli/call.h"

namespace kestrane {

std::unique_ptr<Call> MakeConsoleCall();

}  // namespace kestrane
