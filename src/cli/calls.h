#pragma once

// The calls that kestrane-cli has, each in a file of its own. all_calls.cpp lists them.

#include <memory>

#include "cli/call.h"

namespace kestrane {

std::unique_ptr<Call> MakeReadCall();
std::unique_ptr<Call> MakeSetCall();
std::unique_ptr<Call> MakeBackupCall();
std::unique_ptr<Call> MakeDiffCall();
std::unique_ptr<Call> MakeApplyCall();
std::unique_ptr<Call> MakeCheckCall();
std::unique_ptr<Call> MakeSettingsCall();
std::unique_ptr<Call> MakeConsoleCall();

}  // namespace kestrane
