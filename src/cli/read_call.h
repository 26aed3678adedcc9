#pragma once

// `kestrane-cli read [TAB...]`: reads the unit and prints what the tabs show.

#include "cli/call.h"

namespace kestrane {

std::unique_ptr<Call> MakeReadCall();

}  // namespace kestrane
