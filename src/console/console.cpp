#include "console/console.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace kestrane {
namespace {

constexpr std::chrono::milliseconds kEndWatch{1000};

bool IsPassedOver(const std::string& line) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first == std::string::npos || line[first] == '#';
}

bool IsQuit(const std::string& line) {
    const SplitLine split = SplitWords(line);
    return split.words.size() == 1 && split.words[0].text == "quit";
}

}  // namespace

class Console::OnStack {
  public:
    OnStack(Console& console, Running& running) : console_(console) {
        console.stack_.push_back(&running);
    }
    ~OnStack() { console_.stack_.pop_back(); }
    OnStack(const OnStack&) = delete;
    OnStack& operator=(const OnStack&) = delete;

  private:
    Console& console_;
};

Console::Console(Tool& tool, ScriptedOperator& scripted, ConsoleOptions options)
    : tool_(tool),
      scripted_(scripted),
      options_(std::move(options)),
      loop_(tool.link.platform().loop),
      names_(tool),
      deadline_(tool.link.platform().timers.NewTimer([this] { DeadlineReached(); })),
      end_watch_(tool.link.platform().timers.NewTimer([this] { WatchTick(); })) {
    tool_.screen.AddListener(*this);
    scripted_.set_tell([this](const Json& event) { Tell(event); });
    loop_.AfterEvents([this] { Settle(false); });
}

Console::~Console() { tool_.screen.RemoveListener(*this); }

void Console::FeedLine(std::string line) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines_.push_back(std::move(line));
    WatchTheEnd();
    Schedule();
}

void Console::EndOfInput() {
    input_ended_ = true;
    WatchTheEnd();
    Schedule();
}

void Console::Schedule() {
    if (scheduled_ || busy_ || pending_ || (lines_.empty() && !input_ended_)) return;
    scheduled_ = true;
    loop_.Post([this] { HandleNext(); });
}

void Console::HandleNext() {
    scheduled_ = false;
    if (busy_ || pending_) return;
    if (lines_.empty()) {
        if (input_ended_) End();
        return;
    }
    const std::string line = std::move(lines_.front());
    lines_.pop_front();
    HandleLine(line);
    Schedule();
}

void Console::HandleLine(const std::string& line) {
    if (IsPassedOver(line)) return;
    if (line.size() > kLongestLine) {
        AnswerError("the line is longer than " + std::to_string(kLongestLine) + " bytes");
        return;
    }
    const SplitLine split = SplitWords(line);
    if (split.error.empty()) {
        HandleWords(split.words);
    } else {
        AnswerError(split.error);
    }
}

void Console::HandleWords(const Words& words) {
    const std::string& command = words[0].text;
    if (IsAction(command)) {
        const MadeAction made = MakeAction(names_, tool_, words);
        made.error.empty() ? RunNow(made.action) : AnswerError(made.error);
        return;
    }
    for (const Row* row = kRows; row->name; ++row) {
        if (command != row->name) continue;
        if (words.size() < row->least_words || words.size() > row->most_words) {
            AnswerError(std::string("usage: ") + row->usage);
        } else {
            (this->*row->handle)(words);
        }
        return;
    }
    AnswerError("no command " + command);
}

void Console::AnswerOk() { Answer({{"ok", true}}); }

void Console::AnswerValue(const Json& value) { Answer({{"ok", true}, {"value", value}}); }

void Console::AnswerError(const std::string& error) {
    std::string one_line = error;
    std::replace(one_line.begin(), one_line.end(), '\n', ' ');
    std::replace(one_line.begin(), one_line.end(), '\r', ' ');
    Answer({{"ok", false}, {"error", one_line}});
}

void Console::RunNow(const Action& action) {
    if (action.ends_program) AnswerOk();
    Running running{.started = false};
    busy_ = true;
    WatchTheEnd();
    const OnStack on_stack(*this, running);
    const Refusal refusal = action.run();
    if (running.over) return;
    running.over = true;
    busy_ = false;
    if (refusal) {
        AnswerError(*refusal);
    } else {
        action.value ? AnswerValue(action.value()) : AnswerOk();
    }
}

void Console::RunStarted(const Action& action) {
    Running running{.started = true};
    const OnStack on_stack(*this, running);
    action.run();
    if (!running.over) --started_;
}

// The form was opened by the handling on top of the stack: nothing below it can have run since.
void Console::FormOpened(Form& form) {
    if (stack_.empty() || stack_.back()->over) return;
    Running& running = *stack_.back();
    running.over = true;
    running.stands_in = &form;
    if (running.started) {
        --started_;
        return;
    }
    busy_ = false;
    Answer({{"ok", true}, {"modal", form.name()}});
    Schedule();
}

void Console::FormShown(Form& form) {
    Tell({{"event", "form"}, {"name", form.name()}, {"open", true}});
}

// What was begun by `start` and waited for the form goes on.
void Console::FormHidden(Form& form) {
    for (Running* running : stack_) {
        if (running->stands_in != &form) continue;
        running->stands_in = nullptr;
        if (!running->started) continue;
        running->over = false;
        ++started_;
    }
    Tell({{"event", "form"}, {"name", form.name()}, {"open", false}});
}

void Console::ControlChanged(Control& /*control*/, Property /*property*/) { Look(); }

void Console::FocusChanged(Form& /*form*/) { Look(); }

// Runs once the input has an end and a handling holds it up.
void Console::WatchTheEnd() {
    if (!busy_ || watching_the_end_) return;
    if (!input_ended_ && std::none_of(lines_.begin(), lines_.end(), IsQuit)) return;
    watching_the_end_ = true;
    stuck_at_.reset();
    end_watch_->Start(kEndWatch);
}

// The end does not wait for a handling that only a reply could end which nothing times out.
void Console::WatchTick() {
    if (!busy_) {
        watching_the_end_ = false;
        end_watch_->Stop();
        return;
    }
    const unsigned frames = tool_.link.FramesSent();
    if (!WaitsForEver()) {
        stuck_at_.reset();
    } else if (stuck_at_ == frames) {
        EndUnanswered();
    } else {
        stuck_at_ = frames;
    }
}

bool Console::WaitsForEver() const {
    const MainForm& form = tool_.main_form;
    const bool times_out = form.timTimeout.Enabled() && form.timTimeout.Interval() > 0;
    return form.Label3.Caption() == "*" && !times_out;
}

void Console::EndUnanswered() {
    AnswerError("ended while its handling was waiting for the unit");
    while (!lines_.empty()) {
        const std::string line = std::move(lines_.front());
        lines_.pop_front();
        if (IsPassedOver(line)) continue;
        if (IsQuit(line)) {
            AnswerOk();
            break;
        }
        AnswerError("the program has ended");
    }
    End();
}

void Console::End() {
    tool_.link.platform().tcpsend.Close();
    loop_.Exit(0);
}

}  // namespace kestrane
