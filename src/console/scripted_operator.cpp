#include "console/scripted_operator.h"

#include <algorithm>

namespace kestrane {
namespace {

struct ButtonName {
    BoxButton button;
    const char* word;
    const char* shown;
};

constexpr ButtonName kButtons[] = {
    {BoxButton::kOk, "ok", "OK"},
    {BoxButton::kCancel, "cancel", "Cancel"},
    {BoxButton::kYes, "yes", "Yes"},
    {BoxButton::kNo, "no", "No"},
};

const char* Shown(BoxButton button) {
    for (const ButtonName& row : kButtons) {
        if (row.button == button) return row.shown;
    }
    return "";
}

// The oldest entry, taken out; nothing when there is none.
template <class T>
std::optional<T> TakeFirst(std::deque<T>& queue) {
    if (queue.empty()) return {};
    T first = std::move(queue.front());
    queue.pop_front();
    return first;
}

}  // namespace

std::optional<BoxButton> ButtonOf(const std::string& word) {
    for (const ButtonName& row : kButtons) {
        if (word == row.word) return row.button;
    }
    return {};
}

BoxButton ScriptedOperator::Show(const std::string& title, const std::string& text,
                                 const std::vector<BoxButton>& buttons) {
    BoxButton answer = buttons.empty() ? BoxButton::kOk : buttons.front();
    const std::optional<BoxButton> wanted = TakeFirst(answers_);
    if (wanted && std::find(buttons.begin(), buttons.end(), *wanted) != buttons.end()) {
        answer = *wanted;
    }
    Json names = Json::array();
    for (const BoxButton button : buttons) names.push_back(Shown(button));
    tell_({{"event", "box"},
           {"title", FromByteText(title)},
           {"text", FromByteText(text)},
           {"buttons", names},
           {"answer", Shown(answer)}});
    return answer;
}

std::string ScriptedOperator::Ask(const Request& request) {
    std::string path = TakeFirst(files_).value_or(std::string());
    tell_({{"event", "dialog"},
           {"kind", request.save ? "save" : "open"},
           {"title", FromByteText(request.title)},
           {"filter", FromByteText(request.filter)},
           {"path", path}});
    return path;
}

void ScriptedOperator::Beep() { tell_({{"event", "beep"}}); }

}  // namespace kestrane
