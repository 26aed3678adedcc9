#pragma once

// The console: one command a line in, one JSON answer a line out, events as lines of their own.
//
// The one thing to know is what stands on the stack. A command's handling runs there, in an event
// of its own, and further lines stay queued until it has returned or has opened a modal form. What
// `start` began runs likewise, with later lines handled inside its waits. But wait, sleep and idle
// are states and not loops: they are looked at when events have been handled, so that an operation
// goes on as soon as its own condition holds.

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/actions.h"
#include "console/scripted_operator.h"
#include "editing/workbench.h"

namespace kestrane {

struct ConsoleOptions {
    // One line without its end, to be flushed at once.
    std::function<void(const std::string& line)> write;
    // Saves a picture of the form; returns why it can't. Without it there are no pictures.
    std::function<std::optional<std::string>(Form&, const std::string& path)> grab;
    // Where on the display a control is seen: x, y, width, height; nothing if it is not.
    std::function<std::optional<std::array<int, 4>>(const Control&)> where = {};
    // Pending changes, undo and messages; null where there are none.
    Workbench* workbench = nullptr;
};

// Lives until the program ends, as the event loop keeps calling it.
class Console : public ScreenListener {
  public:
    static constexpr std::size_t kLongestLine = 1 << 16;

    Console(Tool& tool, ScriptedOperator& scripted, ConsoleOptions options);
    ~Console() override;
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    // A line of input, without its end. It is handled in an event of its own, in its turn.
    void FeedLine(std::string line);
    // Acts as `quit` behind the lines fed so far.
    void EndOfInput();

    void Tell(const Json& event) { options_.write(ToLine(event)); }

    void ControlChanged(Control& control, Property property) override;
    void FocusChanged(Form& form) override;
    void FormShown(Form& form) override;
    void FormOpened(Form& form) override;
    void FormHidden(Form& form) override;

  private:
    using Words = std::vector<Word>;

    // A command whose handling is on the stack.
    struct Running {
        bool started;       // begun by `start`: it has been answered
        bool over = false;  // it has returned or stands in a modal form
        const Form* stands_in = nullptr;
    };
    class OnStack;

    // What the next lines wait for.
    struct Pending {
        enum class Kind { kWait, kSleep, kIdle } kind;
        Target target = {};
        Word wanted = {};
        bool satisfied = false;
    };

    struct Row {
        const char* name;
        std::size_t least_words;
        std::size_t most_words;
        const char* usage;
        void (Console::*handle)(const Words&);
    };
    static const Row kRows[];

    void Schedule();
    void HandleNext();
    void HandleLine(const std::string& line);
    void HandleWords(const Words& words);

    void HandleGet(const Words& words);
    void HandleDump(const Words& words);
    void HandleWait(const Words& words);
    void HandleSleep(const Words& words);
    void HandleIdle(const Words& words);
    void HandleStart(const Words& words);
    void HandleAnswer(const Words& words);
    void HandleFile(const Words& words);
    void HandleGrab(const Words& words);
    void HandleChanges(const Words& words);
    void HandleUndo(const Words& words);
    void HandleRedo(const Words& words);
    void HandleMessages(const Words& words);
    void HandleVerify(const Words& words);
    void HandleOpen(const Words& words);
    void HandleSave(const Words& words);
    void HandleCompare(const Words& words);
    void HandleWhere(const Words& words);
    void HandleHelp(const Words& words);
    void HandleQuit(const Words& words);

    void RunNow(const Action& action);
    void RunStarted(const Action& action);

    void BeginPending(Pending pending, double seconds);
    bool Satisfied() const;
    void Look();
    void Settle(bool expired);
    void DeadlineReached();

    void WatchTheEnd();
    void WatchTick();
    bool WaitsForEver() const;
    void EndUnanswered();
    void End();

    void Answer(const Json& answer) { Tell(answer); }
    // The workbench, or null with the answer given.
    Workbench* NeedWorkbench();
    void AnswerOk();
    void AnswerValue(const Json& value);
    void AnswerError(const std::string& error);

    Tool& tool_;
    ScriptedOperator& scripted_;
    ConsoleOptions options_;
    EventLoop& loop_;
    Names names_;

    std::deque<std::string> lines_;
    bool input_ended_ = false;
    bool scheduled_ = false;
    bool busy_ = false;  // a command not begun by `start` is unanswered
    std::vector<Running*> stack_;
    int started_ = 0;  // begun by `start` and not over
    std::optional<Pending> pending_;
    std::unique_ptr<RepeatingTimer> deadline_;

    std::unique_ptr<RepeatingTimer> end_watch_;
    bool watching_the_end_ = false;
    std::optional<unsigned> stuck_at_;  // frames sent when it was first seen waiting for ever
};

}  // namespace kestrane
