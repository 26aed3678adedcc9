#include "console/call.h"
#include "console/console_call.h"
#include "console/macro_call.h"
#include "console/read_call.h"
#include "console/set_call.h"

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
