#pragma once

// Stands in for the operator where a script drives the tool: answers message boxes and file
// dialogs from what it was told before, and tells of each, and of each beep, as a JSON event. It
// never waits.

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "console/values.h"
#include "platform/platform.h"

namespace kestrane {

class ScriptedOperator : public MessageBoxes, public FileDialogs, public Sound {
  public:
    using Tell = std::function<void(const Json& event)>;

    // Who is told; until it is set, nobody.
    void set_tell(Tell tell) { tell_ = std::move(tell); }

    // Each answer is for one box, in the order given. A box that has no such button takes its
    // first one, as a box without an answer does, and uses the answer up.
    void Answer(BoxButton button) { answers_.push_back(button); }
    // Each path is for one dialog, in the order given; an empty one cancels.
    void ChooseFile(std::string path) { files_.push_back(std::move(path)); }

    BoxButton Show(const std::string& title, const std::string& text,
                   const std::vector<BoxButton>& buttons) override;
    std::string Ask(const Request& request) override;
    void Beep() override;

  private:
    Tell tell_ = [](const Json&) {};
    std::deque<BoxButton> answers_;
    std::deque<std::string> files_;
};

// "ok", "cancel", "yes", "no".
std::optional<BoxButton> ButtonOf(const std::string& word);

}  // namespace kestrane
