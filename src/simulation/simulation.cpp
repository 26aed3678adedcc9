#include "simulation/simulation.h"

#include <algorithm>
#include <bit>

namespace kestrane::simulation {
namespace {

constexpr Milliseconds kSecond{1000};
constexpr std::size_t kMostListed = 200'000;

std::string_view UpWord(Input::Kind kind) {
    return kind == Input::Kind::kSwitch ? "on" : kind == Input::Kind::kGpi ? "high" : "back";
}
std::string_view DownWord(Input::Kind kind) {
    return kind == Input::Kind::kSwitch ? "off" : kind == Input::Kind::kGpi ? "low" : "lost";
}

// Lower-case words with one blank between them.
std::string Plain(std::string_view words) {
    std::string plain;
    for (const char c : words) {
        const bool blank = c == ' ' || c == '\t';
        if (blank && (plain.empty() || plain.back() == ' ')) continue;
        plain += blank ? ' ' : c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    if (!plain.empty() && plain.back() == ' ') plain.pop_back();
    return plain;
}

Event Switched(Milliseconds at, std::uint16_t before, std::uint16_t after) {
    Event event;
    event.at = at;
    event.on = static_cast<std::uint16_t>(after & ~before);
    event.off = static_cast<std::uint16_t>(before & ~after);
    return event;
}

// A loop as Brent's algorithm finds it: after `lead` steps the same `turn` steps come for ever.
struct Loop {
    std::size_t lead = 0;
    std::size_t turn = 0;
    Repeats repeats{};
};

// How many steps the state takes to come back to one of before, found on copies.
std::optional<std::size_t> TurnOf(const Simulation& start, Milliseconds limit) {
    Simulation slow = start;
    Simulation fast = start;
    std::size_t steps = 0;
    std::size_t steps_in_limit = 0;
    for (std::size_t power = 1, turn = 0;; ++steps) {
        if (!fast.NextDue()) return std::nullopt;
        fast.Step();
        ++turn;
        if (slow.SameState(fast)) return turn;
        if (turn == power) {
            slow = fast;
            power *= 2;
            turn = 0;
        }
        if (fast.Now() <= limit) steps_in_limit = steps;
        // A return within the limit is noticed within three times its steps.
        if (steps > 3 * steps_in_limit + 8) return std::nullopt;
    }
}

std::optional<Loop> FindLoop(const Simulation& start, Milliseconds limit) {
    const auto turn = TurnOf(start, limit);
    if (!turn) return std::nullopt;
    Simulation first = start;
    Simulation second = start;
    for (std::size_t i = 0; i < *turn; ++i) second.Step();
    Loop loop{.lead = 0, .turn = *turn};
    for (; !first.SameState(second); ++loop.lead) {
        first.Step();
        second.Step();
    }
    loop.repeats = {second.Now() - first.Now(), first.Now()};
    return loop;
}

MostOn MostWithinASecond(const std::vector<Event>& events) {
    MostOn most;
    int count = 0;
    std::size_t oldest = 0;
    for (const Event& event : events) {
        count += std::popcount(event.on);
        for (; events[oldest].at + kSecond <= event.at; ++oldest) {
            count -= std::popcount(events[oldest].on);
        }
        if (count <= most.count) continue;
        while (events[oldest].on == 0) ++oldest;
        most = {count, events[oldest].at};
    }
    return most;
}

class Runs {
  public:
    Runs(MacroImage image, const Start& start) : simulation_(image, start) { run_.start = start; }

    // Runs up to `time`; false when the run has ended before. `last`: no input is to come.
    bool Until(Milliseconds time, bool last);
    void Apply(const Input& input) { run_.events.push_back(simulation_.Apply(input)); }
    bool End(Timeline::Why why, Milliseconds at) {
        run_.why = why;
        run_.end = at;
        return false;
    }
    Timeline Finish();

  private:
    // Nothing will happen any more, or nothing that is told of.
    bool Stopped(bool last) const {
        const MacroRunner& runner = simulation_.Runner();
        return !runner.Running() && (!runner.InterruptSet() || (last && !simulation_.NextDue()));
    }
    void SkipTurns(const Repeats& turn, Milliseconds time);

    Simulation simulation_;
    Timeline run_;
};

bool Runs::Until(Milliseconds time, bool last) {
    const auto loop = FindLoop(simulation_, time);
    if (Stopped(last)) return End(Timeline::Why::kStop, simulation_.Now());
    for (std::size_t step = 0;; ++step) {
        if (loop && last && step == loop->lead + loop->turn) {
            run_.repeats = loop->repeats;
            return End(Timeline::Why::kRepeats, simulation_.Now());
        }
        const bool listed = !last && run_.events.size() > kMostListed;
        if (loop && listed && step >= loop->lead) SkipTurns(loop->repeats, time);
        const auto due = simulation_.NextDue();
        if (!due || *due > time) break;
        run_.events.push_back(simulation_.Step());
        if (Stopped(last)) return End(Timeline::Why::kStop, simulation_.Now());
    }
    simulation_.PassTo(time);
    return true;
}

void Runs::SkipTurns(const Repeats& turn, Milliseconds time) {
    const auto turns = (time - simulation_.Now()) / turn.every;
    if (turns == 0) return;
    Event event = Switched(simulation_.Now(), 0, 0);
    event.words =
        std::to_string(turns) + " turns of " + SecondsText(turn.every) + " seconds, not listed";
    run_.events.push_back(std::move(event));
    simulation_.Postpone(turns * turn.every);
}

Timeline Runs::Finish() {
    run_.outlets = simulation_.Runner().Live().outlets_on;
    run_.most_on = MostWithinASecond(run_.events);
    return std::move(run_);
}

}  // namespace

std::string Input::Words() const {
    const std::string word(up ? UpWord(kind) : DownWord(kind));
    if (kind == Kind::kSwitch) return "switch " + word;
    if (kind == Kind::kSupply) return "supply " + word;
    return "gpi " + std::to_string(gpi) + " " + word;
}

std::optional<Input> ParseInput(std::string_view words) {
    const std::string plain = Plain(words);
    for (const bool up : {true, false}) {
        for (const auto kind : {Input::Kind::kSwitch, Input::Kind::kSupply}) {
            if (Input{kind, up}.Words() == plain) return Input{kind, up};
        }
        for (int gpi = 1; gpi <= static_cast<int>(kGpis); ++gpi) {
            const Input input{Input::Kind::kGpi, up, gpi};
            if (input.Words() == plain) return input;
        }
    }
    return std::nullopt;
}

std::optional<Milliseconds> ParseSeconds(std::string_view text) {
    const auto point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
    const auto digits = [](std::string_view part) {
        return !part.empty() && part.find_first_not_of("0123456789") == std::string_view::npos;
    };
    if (!digits(whole) || whole.size() > 9) return std::nullopt;
    if (point != text.size() && (!digits(decimals) || decimals.size() > 3)) return std::nullopt;
    std::string thousandths(decimals);
    thousandths.resize(3, '0');
    return Milliseconds{std::stoll(std::string(whole) + thousandths)};
}

std::string SecondsText(Milliseconds time) {
    std::string text = std::to_string(time.count());
    if (text.size() < 4) text.insert(0, 4 - text.size(), '0');
    return text.insert(text.size() - 3, ".");
}

Simulation::Simulation(MacroImage image, const Start& start)
    : image_([image] {
          auto copy = std::make_shared<std::array<std::uint8_t, MacroRunner::kImageBytes>>();
          std::copy(image.begin(), image.end(), copy->begin());
          return copy;
      }()),
      runner_(*image_, start.type) {
    int selector = 2;
    for (const std::uint8_t value : kFactoryChangeover) {
        runner_.SetChangeover(selector++, value, now_);
    }
    runner_.Live().outlets_on = start.outlets_on;
    runner_.Go(start.address, now_);
}

std::optional<Milliseconds> Simulation::NextDue() const {
    const auto due = runner_.NextDue();
    return due ? std::optional(now_ + *due) : std::nullopt;
}

Event Simulation::Step() {
    const Milliseconds due = *runner_.NextDue();
    const bool is_instruction = runner_.InstructionDue() == due;
    const std::uint8_t address = runner_.Pointer();
    const std::uint16_t before = runner_.Live().outlets_on;
    runner_.Advance(due);
    runner_.Rebase(due);
    now_ += due;
    Event event = Switched(now_, before, runner_.Live().outlets_on);
    if (is_instruction) {
        event.address = address;
    } else {
        event.words = "change back";
    }
    return event;
}

void Simulation::PassTo(Milliseconds time) {
    const Milliseconds passed = time - now_;
    if (passed <= Milliseconds{0}) return;
    runner_.Rebase(passed);
    now_ = time;
}

Event Simulation::Apply(const Input& input) {
    const std::uint16_t before = runner_.Live().outlets_on;
    constexpr Milliseconds kNow{0};
    switch (input.kind) {
        case Input::Kind::kSwitch:
            runner_.SetSwitch(input.up, kNow);
            break;
        case Input::Kind::kGpi:
            runner_.SetGpi(static_cast<std::size_t>(input.gpi), input.up, kNow);
            break;
        case Input::Kind::kSupply:
            runner_.SetSupply(Supply::kMain, input.up, kNow);
            break;
    }
    Event event = Switched(now_, before, runner_.Live().outlets_on);
    event.words = input.Words();
    return event;
}

Timeline Simulate(MacroImage image, const Start& start, std::vector<TimedInput> inputs,
                  Milliseconds limit) {
    std::stable_sort(inputs.begin(), inputs.end(),
                     [](const TimedInput& a, const TimedInput& b) { return a.at < b.at; });
    Runs runs(image, start);
    for (const TimedInput& each : inputs) {
        if (each.at > limit) break;
        if (!runs.Until(each.at, false)) return runs.Finish();
        runs.Apply(each.input);
    }
    const bool last = inputs.empty() || inputs.back().at <= limit;
    if (runs.Until(limit, last)) runs.End(Timeline::Why::kTime, limit);
    return runs.Finish();
}

}  // namespace kestrane::simulation
