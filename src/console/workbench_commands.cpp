// The console's commands about pending changes, undo, messages and configuration files.

#include "console/console.h"
#include "editing/configuration_files.h"

namespace kestrane {
namespace {

Json DifferencesOf(const FileOutcome& outcome) {
    Json list = Json::array();
    for (const FileDifference& change : outcome.differences) {
        const bool secret = change.setting->secret;
        list.push_back({{"key", change.setting->key},
                        {"control", change.setting->control},
                        {"before", secret ? Json("(secret)") : ToJson(Value(change.on_screen))},
                        {"now", secret ? Json("(secret)") : ToJson(Value(change.in_file))}});
    }
    return list;
}

Json LeftAloneOf(const FileOutcome& outcome) {
    Json list = Json::array();
    for (const LeftAloneSetting& left : outcome.left_alone) {
        list.push_back({{"key", left.key}, {"why", left.why}});
    }
    return list;
}

Json ValueOf(const FileOutcome& outcome) {
    return {{"changes", DifferencesOf(outcome)}, {"left_alone", LeftAloneOf(outcome)}};
}

}  // namespace

Workbench* Console::NeedWorkbench() {
    if (!options_.workbench) AnswerError("only kestrane-config keeps track of changes");
    return options_.workbench;
}

void Console::HandleChanges(const Words& /*words*/) {
    const Workbench* const workbench = NeedWorkbench();
    if (!workbench) return;
    Json list = Json::array();
    for (const PendingChange& change : workbench->pending.List()) {
        const bool secret = change.setting->secret;
        list.push_back({{"key", change.setting->key},
                        {"control", change.control->name()},
                        {"before", secret ? Json("(secret)") : ToJson(Value(change.before))},
                        {"now", secret ? Json("(secret)") : ToJson(Value(change.now))}});
    }
    AnswerValue(list);
}

void Console::HandleUndo(const Words& /*words*/) {
    Workbench* const workbench = NeedWorkbench();
    if (!workbench) return;
    workbench->Undo() ? AnswerOk() : AnswerError("there is nothing to undo");
}

void Console::HandleRedo(const Words& /*words*/) {
    Workbench* const workbench = NeedWorkbench();
    if (!workbench) return;
    workbench->Redo() ? AnswerOk() : AnswerError("there is nothing to do again");
}

void Console::HandleMessages(const Words& /*words*/) {
    const Workbench* const workbench = NeedWorkbench();
    if (!workbench) return;
    Json list = Json::array();
    for (const Message& message : workbench->messages.All()) {
        list.push_back(
            {{"time", message.when}, {"kind", KindInWords(message.kind)}, {"text", message.text}});
    }
    AnswerValue(list);
}

void Console::HandleVerify(const Words& /*words*/) {
    Workbench* const workbench = NeedWorkbench();
    if (!workbench) return;
    RunNow({.check = {}, .run = [workbench]() -> Refusal {
                if (workbench->Verify()) return {};
                return workbench->messages.All().back().text;
            }});
}

void Console::HandleOpen(const Words& words) {
    Workbench* const workbench = NeedWorkbench();
    if (!workbench) return;
    FileOutcome outcome;
    RunNow({.check = {},
            .run = [&]() -> Refusal {
                outcome = OpenConfiguration(*workbench, words[1].text);
                return outcome.error;
            },
            .value = [&] { return ValueOf(outcome); }});
}

void Console::HandleSave(const Words& words) {
    Workbench* const workbench = NeedWorkbench();
    if (!workbench) return;
    const FileOutcome outcome = SaveConfiguration(*workbench, words[1].text);
    outcome.error ? AnswerError(*outcome.error) : AnswerValue({{"settings", outcome.count}});
}

void Console::HandleCompare(const Words& words) {
    Workbench* const workbench = NeedWorkbench();
    if (!workbench) return;
    const FileOutcome outcome = CompareConfiguration(*workbench, words[1].text);
    outcome.error ? AnswerError(*outcome.error) : AnswerValue(ValueOf(outcome));
}

}  // namespace kestrane
