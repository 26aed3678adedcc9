#pragma once

// A story: what an operator, the line, the units and the event loop do to the tool, step by step,
// drawn from a seed. Each step stands for itself, so that a story can be told with some of them
// left out.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrane::sessions {

enum class Action : std::uint8_t {
    // The operator.
    kConnect,  // to unit a
    kDisconnect,
    kPress,     // the button a of the table of buttons
    kTab,       // selects tab a
    kType,      // into text box a, a text drawn from b
    kFill,      // the same into one of the boxes that look at their text when they are left
    kClickAny,  // control a of the active form
    kChoose,    // item or position b of list or bar a
    kLeave,
    kWorkbench,  // verify, undo, redo or revert, by a
    kCloseForm,  // the modal form, by its title bar
    // The line.
    kSplit,  // the reply after a others comes in two pieces, the second b ms later
    kLate,   // it comes about when the timeout does
    kDrop,
    kGarble,  // its byte b is turned
    kShort,   // its last third does not come
    kCut,     // its first b bytes come, then the connection closes
    kClose,
    kReset,
    kNoise,     // b bytes that nobody asked for
    kConnects,  // from now on connects are accepted, refused or not answered
    kLatency,   // b ms from now on
    // The units.
    kRights,  // unit a takes the rights b away from all of its ports
    kForget,  // unit a is as it came from the factory
    // The loop.
    kSeveral,    // a pump handles up to a events more
    kBoxesStay,  // a box stays open for b ms
};

struct Step {
    int after = 0;  // milliseconds since the step before
    Action action = Action::kLeave;
    unsigned a = 0;
    unsigned b = 0;
};

struct Story {
    std::uint64_t seed = 0;
    std::vector<Step> steps;
};

Story StoryOf(std::uint64_t seed);

// "  +120 ms  press 3 (cmdReadChannelNames)", one line a step.
std::string InWords(const Story& story);

// The buttons of kPress, by the name that the console has for them.
const char* ButtonName(unsigned number);
unsigned ButtonNumber(std::string_view name);

}  // namespace kestrane::sessions
