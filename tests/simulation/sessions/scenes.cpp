#include "simulation/sessions/scenes.h"

#include <iterator>

namespace kestrane::sessions {
namespace {

// What reads and what writes a tab.
struct Work {
    const char* read;
    const char* write;
    const char* other;
};

constexpr Work kTabs[] = {
    {"cmdReadNetworkSettings", "cmdWriteNetworkSettings", "cmdUnitID"},
    {"cmdReadTCPPortPriv", "cmdWriteTCPPortPriv", "cmdWriteTCPPortPriv"},
    {"cmdReadWBISettings", "cmdWriteWBISettings", "cmdWriteWBISettings"},
    {"cmdReadChannelNames", "cmdWriteChannelNames", "cmdWriteChannelNames"},
    {"cmdReadMacroTriggers", "cmdWriteMacroTriggers", "cmdEditMacro"},
    {"cmdRead1WNames", "cmdWrite1WNames", "cmdRead1WLive"},
    {"cmdReadCMSOptions", "cmdSaveStartup(0)", "cmdSaveCurrent(0)"},
};

constexpr int kOperation = 2500;  // milliseconds that a long one takes, about

}  // namespace

Scenes::Scenes(std::mt19937_64& random) : random_(random), tab_(Draw(std::size(kTabs))) {}

Step Scenes::Press(int after, const char* button) const {
    return {after, Action::kPress, ButtonNumber(button), 0};
}

// The connection ends, by the operator or by itself.
Step Scenes::Break(int after) {
    constexpr Action kEnds[] = {Action::kDisconnect, Action::kClose, Action::kReset};
    return {after, kEnds[Draw(std::size(kEnds))], 0, 0};
}

void Scenes::Read(std::vector<Step>& steps) { steps.push_back(Press(300, kTabs[tab_].read)); }

void Scenes::Write(std::vector<Step>& steps) {
    steps.push_back({Pause(kOperation), Action::kType, Draw(100), Draw(100)});
    const Work& work = kTabs[tab_];
    steps.push_back(Press(Pause(60), Draw(4) == 0 ? work.other : work.write));
}

void Scenes::Begin(std::vector<Step>& steps) {
    steps.push_back({10, Action::kConnect, 0, 0});
    steps.push_back(Press(400, kTabs[0].read));
    if (tab_ == 0) return;
    steps.push_back({2600, Action::kTab, tab_, 0});
    Read(steps);
}

// A second unit, or the same one anew; its settings read or not.
void Scenes::Reconnect(std::vector<Step>& steps) {
    steps.push_back(Break(Pause(kOperation)));
    steps.push_back({Pause(Draw(2) == 0 ? 30 : 1500), Action::kConnect, Draw(2), 0});
    if (Draw(4) != 0) steps.push_back(Press(Pause(400), kTabs[0].read));
    if (Draw(2) == 0) Read(steps);
    Write(steps);
}

// Leaving a box that holds nonsense opens another one, which stays open while the line goes.
void Scenes::BoxInTheWay(std::vector<Step>& steps) {
    steps.push_back({Pause(kOperation), Action::kBoxesStay, 0, 200 + Draw(1200)});
    if (Draw(3) == 0) steps.push_back({1, Action::kTab, Draw(2) * 4, 0});
    steps.push_back({Pause(30), Action::kFill, Draw(100), Draw(100)});
    if (Draw(2) == 0) {
        steps.push_back({Pause(30), Action::kTab, Draw(7), 0});
    } else {
        steps.push_back({Pause(30), Action::kPress, Draw(1000), 0});
    }
    steps.push_back(Break(Pause(300)));
    if (Draw(2) == 0) steps.push_back({Pause(200), Action::kConnect, Draw(2), 0});
}

void Scenes::LineLost(std::vector<Step>& steps) {
    Write(steps);
    steps.push_back(Break(Pause(900)));
    steps.push_back({Pause(1300), Action::kConnect, Draw(2), 0});
    steps.push_back(Press(Pause(600), kTabs[0].read));
}

// Nobody is at the other end, and then somebody is.
void Scenes::ErrorsInARow(std::vector<Step>& steps) {
    steps.push_back({Pause(100), Action::kDisconnect, 0, 0});
    steps.push_back({1, Action::kConnects, 1, 0});
    for (unsigned i = 0; i <= Draw(3); ++i) {
        steps.push_back({Pause(1500), Action::kConnect, 0, 0});
        if (Draw(2) == 0) steps.push_back({Pause(1200), Action::kDisconnect, 0, 0});
    }
    steps.push_back({Pause(100), Action::kConnects, 0, 0});
    steps.push_back({Pause(100), Action::kDisconnect, 0, 0});
    steps.push_back({Pause(1200), Action::kConnect, 0, 0});
}

// Pumps that handle several events may find both pieces, or a piece and noise.
void Scenes::ReplyInPieces(std::vector<Step>& steps) {
    steps.push_back({1, Action::kSeveral, 3, Draw(1000)});
    Read(steps);
    for (unsigned i = 0; i < 4; ++i) {
        steps.push_back({Pause(200), Action::kSplit, Draw(2), Draw(24) + 24 * 50 * Draw(5)});
    }
}

void Scenes::EditorAgain(std::vector<Step>& steps) {
    constexpr const char* kInside[] = {"frmScriptEdit.cmdDownload", "frmScriptEdit.cmdUpload",
                                       "frmScriptEdit.cmdGetStatus", "frmScriptEdit.cmdGoTo",
                                       "frmScriptEdit.chkTrace"};
    for (unsigned i = 0; i < 2; ++i) {
        steps.push_back(Press(Pause(kOperation), "cmdEditMacro"));
        steps.push_back(Press(Pause(900), kInside[Draw(std::size(kInside))]));
        if (Draw(3) == 0) steps.push_back({Pause(300), Action::kDrop, 0, 0});
        steps.push_back({Pause(1500), Action::kCloseForm, 0, 0});
    }
}

void Scenes::Append(std::vector<Step>& steps) {
    using Scene = void (Scenes::*)(std::vector<Step>&);
    constexpr Scene kScenes[] = {&Scenes::Read,          &Scenes::Write,      &Scenes::Write,
                                 &Scenes::Reconnect,     &Scenes::Reconnect,  &Scenes::BoxInTheWay,
                                 &Scenes::BoxInTheWay,   &Scenes::LineLost,   &Scenes::ErrorsInARow,
                                 &Scenes::ReplyInPieces, &Scenes::EditorAgain};
    (this->*kScenes[Draw(std::size(kScenes))])(steps);
}

void Scenes::AppendHaste(std::vector<Step>& steps) {
    const unsigned times = 30 + Draw(40);
    for (unsigned i = 0; i < times; ++i) {
        steps.push_back({Pause(40), Action::kConnect, Draw(2), 0});
        steps.push_back({Pause(30), Action::kDrop, 0, 0});
        steps.push_back(Press(100 + Pause(60), kTabs[0].read));
        steps.push_back({Pause(60), Action::kDisconnect, 0, 0});
    }
}

}  // namespace kestrane::sessions
