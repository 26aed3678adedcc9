// The console's commands that are no actions: reading the screen, time, and the script's own.

#include <chrono>
#include <cmath>

#include "console/console.h"

namespace kestrane {
namespace {

constexpr double kDefaultSeconds = 10;
constexpr int kLongestSleep = 86'400'000;

Json DescribeControl(const Control& control) {
    Json properties = Json::object();
    for (const auto& [name, value] : control.Properties()) properties[name] = ToJson(value);
    return properties;
}

}  // namespace

// clang-format off
const Console::Row Console::kRows[] = {
    {"get",    2, 2, "get NAME[.PROPERTY]",                  &Console::HandleGet},
    {"dump",   1, 2, "dump [FORM]",                          &Console::HandleDump},
    {"wait",   3, 4, "wait NAME[.PROPERTY] VALUE [SECONDS]", &Console::HandleWait},
    {"sleep",  2, 2, "sleep MILLISECONDS",                   &Console::HandleSleep},
    {"idle",   1, 2, "idle [SECONDS]",                       &Console::HandleIdle},
    {"start",  2, 9, "start COMMAND ...",                    &Console::HandleStart},
    {"answer", 2, 2, "answer ok|cancel|yes|no",              &Console::HandleAnswer},
    {"file",   2, 2, "file PATH",                            &Console::HandleFile},
    {"grab",   3, 3, "grab FORM FILE",                       &Console::HandleGrab},
    {"where",    2, 2, "where NAME",                         &Console::HandleWhere},
    {"changes",  1, 1, "changes",                            &Console::HandleChanges},
    {"undo",     1, 1, "undo",                               &Console::HandleUndo},
    {"redo",     1, 1, "redo",                               &Console::HandleRedo},
    {"messages", 1, 1, "messages",                           &Console::HandleMessages},
    {"verify",   1, 1, "verify",                             &Console::HandleVerify},
    {"open",     2, 2, "open FILE",                          &Console::HandleOpen},
    {"save",     2, 2, "save FILE",                          &Console::HandleSave},
    {"compare",  2, 2, "compare FILE",                       &Console::HandleCompare},
    {"help",   1, 1, "help",                                 &Console::HandleHelp},
    {"quit",   1, 1, "quit",                                 &Console::HandleQuit},
    {nullptr,  0, 0, nullptr,                                nullptr},
};
// clang-format on

void Console::HandleGet(const Words& words) {
    const FoundTarget found = names_.Find(words[1].text);
    found.target ? AnswerValue(ToJson(ReadTarget(*found.target))) : AnswerError(found.error);
}

// The names stand without their form's, in the order of the screen.
void Console::HandleDump(const Words& words) {
    std::string error;
    Form* const form = words.size() > 1 ? names_.FindForm(words[1].text, error) : &tool_.main_form;
    if (!form) {
        AnswerError(error);
        return;
    }
    Json controls = Json::object();
    for (const Control* control : form->controls()) {
        controls[control->name()] = DescribeControl(*control);
    }
    AnswerValue(controls);
}

void Console::HandleWait(const Words& words) {
    const FoundTarget found = names_.Find(words[1].text);
    if (!found.target) {
        AnswerError(found.error);
        return;
    }
    const Converted converted = ConvertWord(words[2], ReadTarget(*found.target));
    if (!converted.value) {
        AnswerError(words[1].text + " " + converted.error);
        return;
    }
    const auto seconds = words.size() > 3 ? WordAsSeconds(words[3]) : kDefaultSeconds;
    if (!seconds) {
        AnswerError("the time is a number of seconds, 0 to 86400");
        return;
    }
    BeginPending({Pending::Kind::kWait, *found.target, words[2]}, *seconds);
}

void Console::HandleSleep(const Words& words) {
    const auto milliseconds = WordAsInt(words[1], 0, kLongestSleep);
    if (!milliseconds) {
        AnswerError("the time is a number of milliseconds, 0 to 86400000");
        return;
    }
    BeginPending({Pending::Kind::kSleep}, *milliseconds / 1000.0);
}

void Console::HandleIdle(const Words& words) {
    const auto seconds = words.size() > 1 ? WordAsSeconds(words[1]) : kDefaultSeconds;
    if (!seconds) {
        AnswerError("the time is a number of seconds, 0 to 86400");
        return;
    }
    BeginPending({Pending::Kind::kIdle}, *seconds);
}

void Console::HandleStart(const Words& words) {
    const Words command(words.begin() + 1, words.end());
    if (!IsAction(command[0].text)) {
        AnswerError(command[0].text + " can't be started");
        return;
    }
    const MadeAction made = MakeAction(names_, tool_, command);
    Refusal refusal;
    if (!made.error.empty()) {
        refusal = made.error;
    } else if (made.action.check) {
        refusal = made.action.check();
    }
    if (refusal) {
        AnswerError(*refusal);
        return;
    }
    ++started_;
    loop_.Post([this, action = made.action] { RunStarted(action); });
    AnswerOk();
}

void Console::HandleAnswer(const Words& words) {
    const auto button = ButtonOf(words[1].text);
    if (!button) {
        AnswerError("an answer is ok, cancel, yes or no");
        return;
    }
    scripted_.Answer(*button);
    AnswerOk();
}

void Console::HandleFile(const Words& words) {
    scripted_.ChooseFile(words[1].text);
    AnswerOk();
}

void Console::HandleGrab(const Words& words) {
    std::string error;
    Form* const form = names_.FindForm(words[1].text, error);
    if (!form) {
        AnswerError(error);
        return;
    }
    if (!options_.grab) {
        AnswerError("there are no windows to take a picture of; kestrane-config has them");
        return;
    }
    const auto problem = options_.grab(*form, words[2].text);
    problem ? AnswerError(*problem) : AnswerOk();
}

void Console::HandleWhere(const Words& words) {
    const FoundTarget found = names_.Find(words[1].text);
    if (!found.target || !found.target->control) {
        AnswerError(found.target ? "no control " + words[1].text : found.error);
        return;
    }
    const auto place = options_.where ? options_.where(*found.target->control) : std::nullopt;
    place ? AnswerValue(*place) : AnswerError(words[1].text + " can't be seen");
}

void Console::HandleHelp(const Words& /*words*/) {
    Json list = Json::array();
    for (const std::string& usage : ActionUsages()) list.push_back(usage);
    for (const Row* row = kRows; row->name; ++row) list.push_back(row->usage);
    AnswerValue(list);
}

void Console::HandleQuit(const Words& /*words*/) {
    AnswerOk();
    End();
}

// A wait for what holds already is over at once; everything else is over in an event to come.
void Console::BeginPending(Pending pending, double seconds) {
    pending_ = std::move(pending);
    Look();
    if (pending_->satisfied) {
        Settle(false);
        return;
    }
    const auto time = std::chrono::milliseconds(std::lround(std::ceil(seconds * 1000)));
    if (time.count() > 0) {
        deadline_->Start(time);
    } else {
        loop_.Post([this] { DeadlineReached(); });
    }
}

bool Console::Satisfied() const {
    switch (pending_->kind) {
        case Pending::Kind::kWait: {
            const Value present = ReadTarget(pending_->target);
            const Converted wanted = ConvertWord(pending_->wanted, present);
            return wanted.value && SameValue(*wanted.value, present);
        }
        case Pending::Kind::kIdle:
            return started_ == 0;
        case Pending::Kind::kSleep:
            break;
    }
    return false;
}

// Comes in the middle of handlings too, so that a value that stands for a moment counts.
void Console::Look() {
    if (pending_ && !pending_->satisfied) pending_->satisfied = Satisfied();
}

void Console::DeadlineReached() { Settle(true); }

void Console::Settle(bool expired) {
    if (!pending_) return;
    Look();
    if (!pending_->satisfied && !expired) return;
    const Pending ended = *std::exchange(pending_, std::nullopt);
    deadline_->Stop();
    if (ended.satisfied || ended.kind == Pending::Kind::kSleep) {
        AnswerOk();
    } else if (ended.kind == Pending::Kind::kIdle) {
        AnswerError("timeout");
    } else {
        Answer({{"ok", false}, {"error", "timeout"}, {"value", ToJson(ReadTarget(ended.target))}});
    }
    Schedule();
}

}  // namespace kestrane
