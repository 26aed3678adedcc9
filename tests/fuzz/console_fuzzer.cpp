// Any lines to the console, with a demo unit at the far end: each answer and event is one line, and
// the program goes on until it is told to end.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "console/console.h"
#include "support/unit_peer.h"
#include "support/virtual_platform.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace kestrane;
    VirtualPlatform world;
    ScriptedOperator scripted;
    Tool tool({world.loop, world.timers, world.tcpsend, world.http, scripted, scripted, world.clock,
               world.random, scripted, world.disk});
    UnitPeer unit(world.tcpsend, world.time);
    tool.Start();
    Console console(tool, scripted,
                    {[](const std::string& line) {
                         if (line.find('\n') != std::string::npos) std::abort();
                     },
                     {}});
    std::string_view left(reinterpret_cast<const char*>(bytes), size);
    while (!left.empty()) {
        const auto end = left.find('\n');
        console.FeedLine(std::string(left.substr(0, end)));
        left.remove_prefix(end == std::string_view::npos ? left.size() : end + 1);
    }
    console.EndOfInput();
    try {
        world.RunFor(std::chrono::minutes(5));
    } catch (const ProgramEnded&) {
        // Told to end.
    }
    return 0;
}
