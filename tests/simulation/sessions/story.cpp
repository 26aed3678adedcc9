#include "simulation/sessions/story.h"

#include <algorithm>
#include <iterator>
#include <random>

#include "simulation/sessions/scenes.h"

namespace kestrane::sessions {
namespace {

struct Row {
    Action action;
    const char* name;
    int weight;
};

// clang-format off
constexpr Row kRows[] = {
    {Action::kConnect, "connect to unit", 10}, {Action::kDisconnect, "disconnect", 5},
    {Action::kPress, "press", 40},             {Action::kTab, "select tab", 6},
    {Action::kType, "type into box", 10},      {Action::kFill, "fill watched box", 3},
    {Action::kClickAny, "click control", 10},
    {Action::kChoose, "choose in control", 3}, {Action::kLeave, "leave", 2},
    {Action::kWorkbench, "workbench", 6},
    {Action::kCloseForm, "close the form", 3}, {Action::kSplit, "split a reply", 4},
    {Action::kLate, "a late reply", 4},
    {Action::kDrop, "drop a reply", 3},        {Action::kGarble, "garble a reply", 4},
    {Action::kShort, "shorten a reply", 4},
    {Action::kCut, "cut a reply", 2},          {Action::kClose, "the unit closes", 4},
    {Action::kReset, "the line resets", 4},    {Action::kNoise, "noise", 2},
    {Action::kConnects, "connects from now on", 3}, {Action::kLatency, "latency", 3},
    {Action::kRights, "rights taken from unit", 3}, {Action::kForget, "unit forgets", 2},
    {Action::kSeveral, "events a pump", 3},    {Action::kBoxesStay, "boxes stay open", 3},
};

constexpr const char* kButtons[] = {
    "cmdReadNetworkSettings", "cmdReadNetworkSettings", "cmdReadNetworkSettings",
    "cmdWriteNetworkSettings", "cmdReadTCPPortPriv", "cmdWriteTCPPortPriv", "cmdReadWBISettings",
    "cmdWriteWBISettings", "cmdReadChannelNames", "cmdWriteChannelNames", "cmdReadMacroTriggers",
    "cmdWriteMacroTriggers", "cmdRead1WNames", "cmdWrite1WNames", "cmdRead1WLive", "cmd1WireClear",
    "cmd1WireCommit", "cmdResetMinMax", "cmdReadCMSOptions", "cmdSaveCurrent(0)",
    "cmdSaveCurrent(1)", "cmdSaveStartup(0)", "cmdSaveStartup(1)", "cmdUnitID", "OptButID(1)",
    "OptButID(250)", "OptButID(2)", "OptButID(250)", "cmdResetEthernet", "cmdEditMacro", "cmdHelp", "frmScriptEdit.cmdDownload",
    "frmScriptEdit.cmdUpload", "frmScriptEdit.cmdGetStatus", "frmScriptEdit.cmdGoTo",
    "frmScriptEdit.chkTrace",
};
// clang-format on

Action DrawAction(std::mt19937_64& random) {
    int total = 0;
    for (const Row& row : kRows) total += row.weight;
    int draw = static_cast<int>(random() % static_cast<unsigned>(total));
    for (const Row& row : kRows) {
        draw -= row.weight;
        if (draw < 0) return row.action;
    }
    return Action::kLeave;
}

// Most things come one upon the other, some in step with the reader, some after a silence.
int DrawPause(std::mt19937_64& random) {
    constexpr unsigned kLongest[] = {3, 30, 120, 120, 300, 300, 800, 3500};
    return static_cast<int>(random() % kLongest[random() % std::size(kLongest)]);
}

Step DrawStep(std::mt19937_64& random) {
    Step step;
    step.after = DrawPause(random);
    step.action = DrawAction(random);
    step.a = static_cast<unsigned>(random() % 100'000);
    step.b = static_cast<unsigned>(random() % 100'000);
    return step;
}

}  // namespace

// Most stories begin with a connect and a read, or little would come of them.
Story StoryOf(std::uint64_t seed) {
    std::mt19937_64 random(seed);
    Story story{seed, {}};
    Scenes scenes(random);
    if (random() % 4 != 0) scenes.Begin(story.steps);
    if (random() % 2 == 0) story.steps.push_back({1, Action::kSeveral, DrawStep(random).a, 7});
    if (random() % 100 == 0) scenes.AppendHaste(story.steps);
    const std::size_t count = story.steps.size() + 4 + random() % 24;
    while (story.steps.size() < count) {
        if (random() % 6 == 0) {
            scenes.Append(story.steps);
        } else {
            story.steps.push_back(DrawStep(random));
        }
    }
    return story;
}

const char* ButtonName(unsigned number) { return kButtons[number % std::size(kButtons)]; }

unsigned ButtonNumber(std::string_view name) {
    const auto* const found = std::find(std::begin(kButtons), std::end(kButtons), name);
    return static_cast<unsigned>(found - std::begin(kButtons));
}

std::string InWords(const Story& story) {
    std::string words;
    for (const Step& step : story.steps) {
        std::string name;
        for (const Row& row : kRows) {
            if (row.action == step.action) name = row.name;
        }
        words += "  +" + std::to_string(step.after) + " ms  " + name;
        words += step.action == Action::kPress
                     ? std::string(" ") + ButtonName(step.a)
                     : " " + std::to_string(step.a) + ", " + std::to_string(step.b);
        words += "\n";
    }
    return words;
}

}  // namespace kestrane::sessions
