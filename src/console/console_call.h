#pragma once

// `kestrane-cli console`: every control by name, for scripts.

#include "console/call.h"

namespace kestrane {

std::unique_ptr<Call> MakeConsoleCall();

}  // namespace kestrane
