#include "macro/macro_flow.h"

#include <algorithm>
#include <bitset>

#include "macro/instruction_set.h"
#include "macro/source_words.h"
#include "macro/time_code.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr std::size_t kEnd = MacroProgram::kAddresses;
constexpr unsigned kAllOutlets = (1u << kOutletCount) - 1;

using Addresses = std::bitset<kEnd>;

std::string Hex(std::size_t address) { return HexByte(static_cast<std::uint8_t>(address)); }

bool IsAddress(std::size_t address) { return address >= kFirstMacroAddress && address < kEnd; }

// An instruction as the flow sees it. What the table does not hold stops the program.
struct Step {
    Effect effect = Effect::kStops;
    std::uint8_t second = 0;
    std::optional<std::size_t> target;  // of an address operand within the program
    unsigned outlets = 0;               // that it turns on or off

    bool GoesOn() const { return effect != Effect::kStops && effect != Effect::kJumps; }
    bool Jumps() const { return effect == Effect::kJumps || effect == Effect::kBranches; }
    bool TurnsOn() const { return effect == Effect::kTurnsOn || effect == Effect::kTurnsOnOrSkips; }
    bool TurnsOff() const {
        return effect == Effect::kTurnsOff || effect == Effect::kTurnsOffOrSkips;
    }
    bool Skips() const {
        return effect == Effect::kTurnsOnOrSkips || effect == Effect::kTurnsOffOrSkips;
    }
    // A skip form counts as a wait, though it may skip it.
    bool Waits() const {
        return (effect == Effect::kWaits || TurnsOn() || TurnsOff()) && TimeTenths(second) > 0;
    }
};

Step StepAt(const MacroMemory& image, std::size_t address) {
    const std::uint8_t opcode = image.Get(2 * address);
    Step step;
    step.second = image.Get(2 * address + 1);
    const Instruction* row = FindInstruction(opcode);
    if (row == nullptr) return step;
    step.effect = row->effect;
    if (row->operand == Operand::kAddress && OperandInRange(row->operand, step.second)) {
        step.target = step.second;
    }
    step.outlets = row->outlet.empty() ? kAllOutlets : (1u << (opcode - row->opcode)) & kAllOutlets;
    return step;
}

class Flow {
  public:
    explicit Flow(const MacroProgram& program) : program_(program) {
        for (std::size_t a = kFirstMacroAddress; a < kEnd; ++a) {
            steps_[a] = StepAt(program.image, a);
        }
        Enter(kFirstMacroAddress);
        for (const auto& trigger : program.triggers) {
            if (const auto target = Target(trigger)) Enter(*target);
        }
        while (!to_visit_.empty()) {
            const Arrival arrival = to_visit_.back();
            to_visit_.pop_back();
            Leave(arrival);
        }
    }

    std::vector<Finding> Findings() {
        FindUnreached();
        FindLoopsWithoutWaits();
        FindRunsOff();
        FindUnprogrammed();
        FindInrush();
        FindRepeated();
        return std::move(findings_);
    }

  private:
    struct Arrival {
        std::size_t address;
        unsigned just_on;
    };

    // Where an enabled trigger goes to.
    static std::optional<std::size_t> Target(const std::optional<MacroProgram::Trigger>& trigger) {
        if (!trigger || !trigger->row.enabled) return std::nullopt;
        const auto address = HexPair(trigger->row.address);
        if (!address || !OperandInRange(Operand::kAddress, *address)) return std::nullopt;
        return *address;
    }

    std::vector<std::size_t> Next(std::size_t address) const {
        const Step& step = steps_[address];
        std::vector<std::size_t> next;
        if (step.Jumps() && step.target) next.push_back(*step.target);
        if (step.GoesOn() && IsAddress(address + 1)) next.push_back(address + 1);
        return next;
    }

    // Comes to an address with these outlets switched on in the same instant.
    void Enter(std::size_t address, unsigned just_on = 0) {
        // Real programs have one or two; beyond this many a further way tells nothing new.
        constexpr std::size_t kMostWays = 32;
        std::vector<unsigned>& ways = just_on_[address];
        if (ways.size() == kMostWays ||
            std::find(ways.begin(), ways.end(), just_on) != ways.end()) {
            return;
        }
        reached_.set(address);
        ways.push_back(just_on);
        to_visit_.push_back({address, just_on});
    }
    void Leave(const Arrival& arrival) {
        const Step& step = steps_[arrival.address];
        for (const std::size_t next : Next(arrival.address)) Enter(next, JustOnAfter(arrival));
        if (step.effect == Effect::kSetsInterrupt && step.target) Enter(*step.target);
    }
    unsigned JustOnAfter(const Arrival& arrival) const {
        const Step& step = steps_[arrival.address];
        const unsigned before = step.Waits() ? 0 : arrival.just_on;
        if (step.TurnsOn()) return before | step.outlets;
        return step.TurnsOff() ? before & ~step.outlets : before;
    }

    void Add(std::size_t address, std::string_view kind, std::string text) {
        findings_.push_back({program_.places[address], static_cast<std::uint8_t>(address),
                             Finding::Severity::kWarning, kind, std::move(text)});
    }

    void FindUnreached();
    void FindLoopsWithoutWaits();
    void FindRunsOff();
    void FindUnprogrammed();
    void FindInrush();
    void FindRepeated();
    bool Unreached(std::size_t address) const {
        return IsAddress(address) && program_.programmed.test(address) && !reached_.test(address) &&
               program_.image.Get(2 * address) != 0;
    }

    const MacroProgram& program_;
    std::array<Step, kEnd> steps_;
    Addresses reached_;
    std::array<std::vector<unsigned>, kEnd> just_on_;  // of each way to an address
    std::vector<Arrival> to_visit_;
    std::vector<Finding> findings_;
};

// A stop that nothing reaches does no harm, so it is no code here.
void Flow::FindUnreached() {
    for (std::size_t a = kFirstMacroAddress; a < kEnd; ++a) {
        if (!Unreached(a) || Unreached(a - 1)) continue;
        std::size_t last = a;
        while (Unreached(last + 1)) ++last;
        Add(a, "unreached",
            last == a ? "nothing reaches this instruction"
                      : "nothing reaches the instructions from here to " + Hex(last));
    }
}

void Flow::FindLoopsWithoutWaits() {
    // What each address leads to by one step or more, through instructions that do not wait.
    std::array<Addresses, kEnd> leads_to;
    const auto waits = [this](std::size_t a) { return !reached_.test(a) || steps_[a].Waits(); };
    for (bool changed = true; changed;) {
        changed = false;
        for (std::size_t a = kFirstMacroAddress; a < kEnd; ++a) {
            if (waits(a)) continue;
            Addresses now = leads_to[a];
            for (const std::size_t next : Next(a)) {
                if (!waits(next)) now |= leads_to[next] | Addresses().set(next);
            }
            changed = changed || now != leads_to[a];
            leads_to[a] = now;
        }
    }
    Addresses told;
    for (std::size_t a = kFirstMacroAddress; a < kEnd; ++a) {
        if (!leads_to[a].test(a) || told.test(a)) continue;
        std::size_t last = a;
        for (std::size_t b = a; b < kEnd; ++b) {
            if (!leads_to[a].test(b) || !leads_to[b].test(a)) continue;
            told.set(b);
            last = b;
        }
        Add(a, "no-wait",
            last == a ? "this instruction goes to itself and never waits"
                      : "the loop from here to " + Hex(last) + " never waits");
    }
}

void Flow::FindRunsOff() {
    constexpr std::size_t kLast = kEnd - 1;
    if (reached_.test(kLast) && steps_[kLast].GoesOn()) {
        Add(kLast, "runs-off", "the program runs on past its last address; end it with a stop");
    }
}

void Flow::FindUnprogrammed() {
    const auto text = [](std::size_t target) {
        return "address " + Hex(target) + " was never programmed";
    };
    for (std::size_t a = kFirstMacroAddress; a < kEnd; ++a) {
        const auto target = steps_[a].target;
        if (!reached_.test(a) || !target || program_.programmed.test(*target)) continue;
        Add(a, "unprogrammed", text(*target));
    }
    for (std::size_t i = 0; i < program_.triggers.size(); ++i) {
        const auto& trigger = program_.triggers[i];
        const auto target = Target(trigger);
        if (!target || program_.programmed.test(*target)) continue;
        findings_.push_back(
            {trigger->place, std::nullopt, Finding::Severity::kWarning, "unprogrammed",
             "trigger " + std::to_string(i + 1) + ": " + text(*target), static_cast<int>(i)});
    }
}

void Flow::FindInrush() {
    for (std::size_t a = kFirstMacroAddress; a < kEnd; ++a) {
        const Step& step = steps_[a];
        if (!reached_.test(a) || !step.TurnsOn() || TimeTenths(step.second) > 0) continue;
        const bool all = step.outlets == kAllOutlets;
        const bool joins =
            std::any_of(just_on_[a].begin(), just_on_[a].end(), [&step](unsigned just_on) {
                return just_on != 0 && step.outlets != 0 && (just_on & step.outlets) == 0;
            });
        if (!all && !joins) continue;
        Add(a, "inrush",
            all ? "all outlets are switched on in the same instant"
                : "this outlet is switched on in the same instant as another; give it a delay");
    }
}

void Flow::FindRepeated() {
    for (std::size_t a = kFirstMacroAddress + 1; a < kEnd; ++a) {
        const Step& step = steps_[a];
        const Step& before = steps_[a - 1];
        const bool same_way =
            (step.TurnsOn() && before.TurnsOn()) || (step.TurnsOff() && before.TurnsOff());
        if (!reached_.test(a - 1) || !step.Skips() || !same_way || step.outlets == 0) continue;
        if ((before.outlets & step.outlets) != step.outlets) continue;
        Add(a, "repeated",
            std::string("the line before has just switched this outlet ") +
                (step.TurnsOn() ? "on" : "off") + ", so this one is always skipped");
    }
}

}  // namespace

std::vector<Finding> CheckFlow(const MacroProgram& program) { return Flow(program).Findings(); }

}  // namespace kestrane
