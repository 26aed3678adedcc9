#include "cli/call.h"
#include "cli/console_call.h"
#include "cli/macro_call.h"
#include "cli/read_call.h"
#include "cli/set_call.h"

namespace kestrane {

std::vector<std::unique_ptr<Call>> AllCalls() {
    std::vector<std::unique_ptr<Call>> calls;
    calls.push_back(MakeReadCall());
    calls.push_back(MakeSetCall());
    calls.push_back(MakeMacroCall());
    calls.push_back(MakeConsoleCall());
    return calls;
}

}  // namespace kestrane
