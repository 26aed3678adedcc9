#include "simulation/sessions/play.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "editing/workbench.h"
#include "simulation/sessions/picture.h"
#include "simulation/sessions/stage.h"

namespace kestrane::sessions {
namespace {

using std::chrono::milliseconds;

// Of those that a hand can use.
template <class T>
T* Nth(Form& form, unsigned number) {
    std::vector<T*> all;
    for (Control* control : form.controls()) {
        auto* const fitting = dynamic_cast<T*>(control);
        if (fitting && fitting->Usable()) all.push_back(fitting);
    }
    return all.empty() ? nullptr : all[number % all.size()];
}

class Player {
  public:
    explicit Player(Stage& stage)
        : stage_(stage), tool_(stage.tool), hand_(stage.hand()), bench_(stage.tool) {}

    void Do(const Step& step);
    void ReadAll(milliseconds begin);
    // Everything as a fresh start would have it, step by step at its time.
    void Recover(milliseconds begin);
    bool recovered() const { return recovered_; }

  private:
    Form& Active() { return *tool_.screen.ActiveForm(); }
    void DoOperator(const Step& step);
    void DoLine(const Step& step);
    void DoRest(const Step& step);
    void ConnectTo(unsigned number);
    void Press(const std::string& name);
    void Type(TextBox* box, unsigned text);
    TextBox* WatchedBox(unsigned number);
    void Work(unsigned number);
    // Nothing has been typed since the clean read.
    void CheckNothingPending() const;
    void OpenEditor(milliseconds begin);
    void Need(const Refusal& refusal) const;
    void At(milliseconds time, std::function<void()> action);

    Stage& stage_;
    Tool& tool_;
    WatchedHand& hand_;
    Workbench bench_;
    // The story is over: what its last steps still do, in boxes that stayed open, is cut short.
    bool recovering_ = false;
    bool recovered_ = false;
    int polls_before_ = 0;
};

void Player::Do(const Step& step) {
    if (step.action <= Action::kCloseForm) return DoOperator(step);
    if (step.action <= Action::kLatency) return DoLine(step);
    DoRest(step);
}

void Player::ConnectTo(unsigned number) {
    hand_.Type(stage_.form.txtCurrentIPAddress, Stage::kHosts[number % 2]);
    if (!recovering_) hand_.Click(stage_.form.cmdConnect);
}

void Player::Press(const std::string& name) {
    const auto dot = name.find('.');
    Form* form =
        dot == std::string::npos ? &stage_.form : tool_.screen.FindForm(name.substr(0, dot));
    Control* control = form->Find(dot == std::string::npos ? name : name.substr(dot + 1));
    if (!control) throw Broken{"no such control: " + name};
    for (const Container* at = &control->container(); at; at = at->parent()) {
        const auto* page = dynamic_cast<const TabPage*>(at);
        if (page && page->index() != stage_.form.SSTab1.Tab()) {
            hand_.Choose(stage_.form.SSTab1, page->index());
        }
    }
    if (!recovering_) hand_.Click(*control);
}

void Player::Type(TextBox* box, unsigned text) {
    constexpr const char* kTexts[] = {"",   "0",  "1",    "A5",  "255",          "32",
                                      "99", "x ", "1243", "0.5", "192.168.10.9", "Kestrel room 7"};
    if (!box || box == &stage_.form.txtCurrentPort) return;
    hand_.Type(*box, kTexts[text % std::size(kTexts)]);
}

// Leaving one of these with a wrong text opens a box.
TextBox* Player::WatchedBox(unsigned number) {
    NetworkTab& network = stage_.form.network;
    TextBox* const boxes[] = {
        &network.txtIPAddress, &network.txtNetbiosName, &network.txtTcpControlPort(number / 5 % 3),
        &stage_.form.triggers.txtMTAddress(number / 5 % 8), &network.txtSubnetMask};
    return boxes[number % std::size(boxes)];
}

void Player::Work(unsigned number) {
    switch (number % 4) {
        case 0:
            return void(bench_.Verify());
        case 1:
            return void(bench_.Undo());
        case 2:
            return void(bench_.Redo());
        default:
            return bench_.pending.RevertAll();
    }
}

void Player::DoOperator(const Step& step) {
    switch (step.action) {
        case Action::kConnect:
            return ConnectTo(step.a);
        case Action::kDisconnect:
            hand_.Click(stage_.form.cmdDisconnect);
            return;
        case Action::kPress:
            return Press(ButtonName(step.a));
        case Action::kTab:
            hand_.Choose(stage_.form.SSTab1, static_cast<int>(step.a % 8));
            return;
        case Action::kType:
            return Type(Nth<TextBox>(Active(), step.a), step.b);
        case Action::kFill:
            return Type(WatchedBox(step.a), step.b);
        case Action::kClickAny:
            if (auto* control = Nth<Control>(Active(), step.a)) hand_.Click(*control);
            return;
        case Action::kChoose:
            if (auto* bar = Nth<ScrollBar>(Active(), step.a)) {
                hand_.Choose(*bar, static_cast<int>(step.b % 256));
            }
            return;
        case Action::kWorkbench:
            return Work(step.a);
        case Action::kCloseForm:
            if (&Active() != &stage_.form) hand_.Close(Active());
            return;
        default:
            hand_.Leave();
    }
}

void Player::DoLine(const Step& step) {
    ReplyLine& line = stage_.line();
    FakeSocket& socket = stage_.world.tcpsend;
    if (step.action <= Action::kCut) line.PassNext(static_cast<int>(step.a % 6));
    switch (step.action) {
        case Action::kSplit:
            return line.SplitNext(1 + step.b % 24, milliseconds(1 + step.b % 250));
        case Action::kLate:
            return line.SplitNext(0, milliseconds(2850 + step.b % 250));
        case Action::kDrop:
            return line.DropNext();
        case Action::kGarble:
            return line.GarbleNext(step.b % 24);
        case Action::kShort:
            return line.CutShortNext();
        case Action::kCut:
            return line.CutNext(step.b % 24);
        case Action::kClose:
            return socket.CloseByPeer();
        case Action::kReset:
            return socket.ResetByPeer();
        case Action::kNoise:
            return socket.Deliver(std::string(1 + step.b % 40, static_cast<char>(step.a)));
        case Action::kConnects: {
            using Answer = FakeSocket::ConnectAnswer;
            constexpr Answer kAnswers[] = {Answer::kAccept, Answer::kRefuse, Answer::kNone};
            return socket.set_connect_answer(kAnswers[step.a % std::size(kAnswers)]);
        }
        default:
            line.set_latency(milliseconds(1 + step.b % 400));
    }
}

void Player::DoRest(const Step& step) {
    switch (step.action) {
        case Action::kRights:
            return stage_.SetRights(step.a, static_cast<int>(step.b % 256));
        case Action::kForget:
            return stage_.Forget(step.a);
        case Action::kSeveral:
            return stage_.world.loop.set_several([most = step.a % 4, draw = step.b]() mutable {
                draw = draw * 1'103'515'245U + 12'345U;
                return static_cast<int>((draw >> 16) % (most + 1));
            });
        default:
            return stage_.world.boxes.set_while_open(
                [this, time = step.b % 1500] { stage_.world.RunFor(milliseconds(time)); });
    }
}

// All is well: what an operator needs can be used.
void Player::Need(const Refusal& refusal) const {
    if (refusal) throw Broken{"stuck: " + *refusal};
}

void Player::At(milliseconds time, std::function<void()> action) {
    stage_.world.time.At(time, std::move(action));
}

// One read after the other, each begun by a press of its own: what an earlier connection has left
// waiting ends with the first answer, below the press that got it.
void Player::ReadAll(milliseconds begin) {
    MainForm& form = stage_.form;
    const std::pair<int, Button*> reads[] = {
        {0, &form.network.cmdReadNetworkSettings}, {1, &form.privileges.cmdReadTCPPortPriv},
        {2, &form.security.cmdReadWBISettings},    {3, &form.names.cmdReadChannelNames},
        {4, &form.triggers.cmdReadMacroTriggers},  {5, &form.one_wire.cmdRead1WNames},
        {6, &form.changeover.cmdReadCMSOptions}};
    for (const auto& [tab, button] : reads) {
        At(begin, [this, tab = tab, button = button] {
            if (tab > 0) Need(hand_.Choose(stage_.form.SSTab1, tab));
            Need(hand_.Click(*button));
        });
        for (int later = 100; later < 1500; later += 70) {
            At(begin + milliseconds(later), [this] { CheckNothingPending(); });
        }
        begin += milliseconds(1500);
    }
    OpenEditor(begin);
    At(begin + milliseconds(2000), [this] {
        Need(hand_.Choose(stage_.form.SSTab1, 0));
        recovered_ = true;
    });
}

// The macro editor polls the unit as long as it is open.
void Player::OpenEditor(milliseconds begin) {
    At(begin, [this] {
        Need(hand_.Choose(stage_.form.SSTab1, 4));
        Need(hand_.Click(stage_.form.triggers.cmdEditMacro));
    });
    At(begin + milliseconds(700), [this] { polls_before_ = stage_.status_polls(); });
    At(begin + milliseconds(1700), [this] {
        if (stage_.status_polls() < polls_before_ + 2) throw Broken{"stuck: the editor's polls"};
        Need(hand_.Close(*tool_.screen.FindForm("frmScriptEdit")));
    });
}

void Player::Recover(milliseconds begin) {
    At(begin, [this] {
        recovering_ = true;
        stage_.MakeWell();
    });
    // A transfer asks, or begins its pause, before its form closes.
    for (const int later : {10, 800, 1600}) {
        At(begin + milliseconds(later), [this] {
            if (&Active() != &stage_.form) hand_.Close(Active());
        });
    }
    At(begin + milliseconds(2500), [this] {
        // An address that is none keeps the focus until it is mended.
        for (int form = 0; form < 3 && &Active() != &stage_.form; ++form) {
            hand_.Close(Active());
        }
        auto* const box = dynamic_cast<TextBox*>(stage_.form.Focused());
        if (box && box->base_name() == "txtMTAddress") hand_.Type(*box, "10");
        Need(hand_.Click(stage_.form.cmdDisconnect));
    });
    // The second of a socket error passes meanwhile. What a write under way has still stored is
    // forgotten.
    At(begin + milliseconds(4000), [this] {
        for (const unsigned number : {0, 1}) stage_.Forget(number);
        Need(hand_.Type(stage_.form.txtTimeout, "3"));
        Need(hand_.Type(stage_.form.txtCurrentIPAddress, Stage::kHosts[0]));
        Need(hand_.Type(stage_.form.txtCurrentPort, "1243"));
        Need(hand_.Click(stage_.form.cmdConnect));
    });
    ReadAll(begin + milliseconds(4300));
}

void Player::CheckNothingPending() const {
    const auto changes = bench_.pending.List();
    if (changes.empty()) return;
    throw Broken{"pending after a clean read: " + changes[0].setting->key + " from \"" +
                 changes[0].before + "\" to \"" + changes[0].now + "\""};
}

// What a fresh tool shows of a fresh unit.
const Picture& FreshPicture() {
    static const Picture picture = [] {
        Stage stage;
        Player player(stage);
        player.Recover(milliseconds(100));
        stage.world.RunFor(milliseconds(20'000));
        if (!player.recovered()) throw Broken{"the reference: a fresh read does not end"};
        return PictureOf(stage.form);
    }();
    return picture;
}

void PlayOn(Stage& stage, const Story& story, std::size_t& steps) {
    Player player(stage);
    milliseconds time{100};
    for (const Step& step : story.steps) {
        time += milliseconds(step.after);
        stage.world.time.At(time, [&stage, &player, &steps, step] {
            ++steps;
            stage.CheckMoment();
            stage.CheckFreshConnection();
            player.Do(step);
        });
    }
    player.Recover(time + milliseconds(200));
    stage.world.RunFor(time + milliseconds(25'000));
    if (!player.recovered()) throw Broken{"a read does not end"};
    if (stage.world.max_pump_depth() > 150) throw Broken{"waits pile up"};
    Compare(PictureOf(stage.form), FreshPicture(), "screen after a clean read");
}

}  // namespace

Outcome Play(const Story& story) {
    Outcome outcome;
    try {
        FreshPicture();
        Stage stage;
        PlayOn(stage, story, outcome.steps);
    } catch (const Broken& broken) {
        outcome.fault = broken.fault;
    } catch (const ProgramEnded&) {
        outcome.fault = "the program ended";
    } catch (const std::exception& error) {
        outcome.fault = std::string("a wait does not end: ") + error.what();
    }
    return outcome;
}

Story Shrink(const Story& story, const Outcome& outcome) {
    const auto rule = [](const std::string& fault) { return fault.substr(0, fault.find(':')); };
    Story shortest = story;
    for (std::size_t chunk = std::max<std::size_t>(story.steps.size() / 2, 1); chunk > 0;) {
        bool shorter = false;
        for (std::size_t at = 0; at < shortest.steps.size();) {
            Story tried = shortest;
            const auto from = tried.steps.begin() + static_cast<std::ptrdiff_t>(at);
            const std::size_t end = std::min(at + chunk, tried.steps.size());
            // What follows keeps its time.
            if (end < tried.steps.size()) {
                for (std::size_t i = at; i < end; ++i)
                    tried.steps[end].after += tried.steps[i].after;
            }
            tried.steps.erase(from, from + static_cast<std::ptrdiff_t>(end - at));
            if (rule(Play(tried).fault) == rule(outcome.fault)) {
                shortest = std::move(tried);
                shorter = true;
            } else {
                at += chunk;
            }
        }
        if (!shorter) chunk /= 2;
    }
    return shortest;
}

}  // namespace kestrane::sessions
