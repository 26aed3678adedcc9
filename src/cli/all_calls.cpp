#include "cli/calls.h"
#include "cli/macro_call.h"

namespace kestrane {

std::vector<std::unique_ptr<Call>> AllCalls() {
    std::vector<std::unique_ptr<Call>> calls;
    calls.push_back(MakeReadCall());
    calls.push_back(MakeSetCall());
    calls.push_back(MakeBackupCall());
    calls.push_back(MakeDiffCall());
    calls.push_back(MakeApplyCall());
    calls.push_back(MakeCheckCall());
    calls.push_back(MakeSettingsCall());
    calls.push_back(MakeMacroCall());
    calls.push_back(MakeConsoleCall());
    return calls;
}

}  // namespace kestrane
