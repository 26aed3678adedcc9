#include "console/actions.h"

#include "console/values.h"

namespace kestrane {
namespace {

constexpr int kHighestCode = 0xFFFF;
constexpr int kMostChoice = 1'000'000;

using Words = std::vector<Word>;

struct Context {
    const Names& names;
    Tool& tool;
    const Words& words;
};

MadeAction Bad(std::string why) { return {{}, std::move(why)}; }

MadeAction MakeClick(const Context& context) {
    std::string error;
    Control* const control = context.names.FindControl(context.words[1].text, error);
    if (!control) return Bad(error);
    Hand& hand = context.tool.hand;
    return {{[&hand, control] { return hand.CheckClick(*control); },
             [&hand, control] { return hand.Click(*control); }},
            {}};
}

// The text box of a line, with the check that its typing makes.
struct BoxAction {
    TextBox* box = nullptr;
    std::function<Refusal()> check;
    std::string error;
};

BoxAction FindBox(const Context& context) {
    BoxAction found;
    Control* const control = context.names.FindControl(context.words[1].text, found.error);
    if (!control) return found;
    found.box = dynamic_cast<TextBox*>(control);
    if (!found.box) {
        found.error = control->name() + " is no text box";
        return found;
    }
    found.check = [&hand = context.tool.hand, box = found.box]() -> Refusal {
        if (auto refusal = hand.CheckUsable(*box)) return refusal;
        if (box->Locked()) return box->name() + " is locked";
        return {};
    };
    return found;
}

MadeAction MakeType(const Context& context) {
    const BoxAction found = FindBox(context);
    if (!found.box) return Bad(found.error);
    const auto text = ToByteText(context.words[2].text);
    if (!text) return Bad("a character above U+00FF can't be typed");
    return {{found.check, [&hand = context.tool.hand, box = found.box,
                           text = *text] { return hand.Type(*box, text); }},
            {}};
}

MadeAction MakePress(const Context& context) {
    const BoxAction found = FindBox(context);
    if (!found.box) return Bad(found.error);
    const auto code = WordAsInt(context.words[2], 0, 255);
    if (!code) return Bad("a character code is 0 to 255");
    return {{found.check, [&hand = context.tool.hand, box = found.box,
                           code = *code] { return hand.Press(*box, code); }},
            {}};
}

MadeAction MakeKey(const Context& context) {
    const auto code = WordAsInt(context.words[1], 0, kHighestCode);
    if (!code) return Bad("a key code is a number");
    return {{{},
             [&hand = context.tool.hand, code = *code]() -> Refusal {
                 hand.Key(code);
                 return {};
             }},
            {}};
}

MadeAction MakeLeave(const Context& context) {
    return {{{},
             [&hand = context.tool.hand]() -> Refusal {
                 hand.Leave();
                 return {};
             }},
            {}};
}

MadeAction MakeChoose(const Context& context) {
    std::string error;
    Control* const control = context.names.FindControl(context.words[1].text, error);
    if (!control) return Bad(error);
    const auto number = WordAsInt(context.words[2], -kMostChoice, kMostChoice);
    if (!number) return Bad("choose takes a number");
    Hand& hand = context.tool.hand;
    return {{[&hand, control] { return hand.CheckUsable(*control); },
             [&hand, control, number = *number] { return hand.Choose(*control, number); }},
            {}};
}

MadeAction MakeClose(const Context& context) {
    std::string error;
    Form* const form = context.names.FindForm(context.words[1].text, error);
    if (!form) return Bad(error);
    MadeAction made;
    made.action.check = [form]() -> Refusal {
        if (form->Visible()) return {};
        return form->name() + " is not open";
    };
    made.action.run = [&hand = context.tool.hand, form] { return hand.Close(*form); };
    made.action.ends_program = form == &context.tool.main_form;
    return made;
}

MadeAction MakeAssign(const Context& context) {
    const FoundTarget found = context.names.Find(context.words[1].text);
    if (!found.target) return Bad(found.error);
    const Converted converted = ConvertWord(context.words[2], ReadTarget(*found.target));
    if (!converted.value) return Bad(context.words[1].text + " " + converted.error);
    return {
        {{},
         [target = *found.target, value = *converted.value] { return WriteTarget(target, value); }},
        {}};
}

// The handling of an event by its name. `code` is for KeyPress alone.
std::optional<std::function<void()>> HandlingOf(Control& control, const std::string& event,
                                                int code) {
    const auto run = [](std::function<void()> Control::*handler, Control& of) {
        return [handler, &of] {
            if (of.*handler) (of.*handler)();
        };
    };
    if (event == "Click") return run(&Control::on_click, control);
    if (event == "Change") return run(&Control::on_change, control);
    if (event == "GotFocus") return run(&Control::on_got_focus, control);
    if (event == "LostFocus") return run(&Control::on_lost_focus, control);
    if (event == "Validate") return run(&Control::on_validate, control);
    if (event == "Timer") return run(&Control::on_timer, control);
    if (event != "KeyPress") return {};
    return [&control, code]() mutable {
        if (control.on_key_press) control.on_key_press(code);
    };
}

MadeAction MakeRaise(const Context& context) {
    const Words& words = context.words;
    std::string error;
    Control* const control = context.names.FindControl(words[1].text, error);
    if (!control) return Bad(error);
    const bool key = words[2].text == "KeyPress";
    if (key != (words.size() == 4)) {
        return Bad(key ? "KeyPress takes a character code" : words[2].text + " takes no code");
    }
    const auto code = key ? WordAsInt(words[3], 0, 255) : 0;
    if (!code) return Bad("a character code is 0 to 255");
    const auto handling = HandlingOf(*control, words[2].text, *code);
    if (!handling) return Bad("no event " + words[2].text);
    return {{{},
             [handling = *handling]() mutable -> Refusal {
                 handling();
                 return {};
             }},
            {}};
}

struct ActionRow {
    const char* name;
    std::size_t least_words;
    std::size_t most_words;
    const char* usage;
    MadeAction (*make)(const Context&);
};

// clang-format off
constexpr ActionRow kActions[] = {
    {"click",  2, 2, "click NAME",                     MakeClick},
    {"type",   3, 3, "type NAME TEXT",                 MakeType},
    {"key",    2, 2, "key CODE",                       MakeKey},
    {"press",  3, 3, "press NAME CODE",                MakePress},
    {"leave",  1, 1, "leave",                          MakeLeave},
    {"choose", 3, 3, "choose NAME N",                  MakeChoose},
    {"close",  2, 2, "close FORM",                     MakeClose},
    {"assign", 3, 3, "assign NAME[.PROPERTY] VALUE",   MakeAssign},
    {"raise",  3, 4, "raise NAME EVENT [CODE]",        MakeRaise},
};
// clang-format on

const ActionRow* FindRow(const std::string& command) {
    for (const ActionRow& row : kActions) {
        if (command == row.name) return &row;
    }
    return nullptr;
}

}  // namespace

bool IsAction(const std::string& command) { return FindRow(command) != nullptr; }

std::vector<std::string> ActionUsages() {
    std::vector<std::string> usages;
    for (const ActionRow& row : kActions) usages.emplace_back(row.usage);
    return usages;
}

MadeAction MakeAction(const Names& names, Tool& tool, const std::vector<Word>& words) {
    const ActionRow* const row = words.empty() ? nullptr : FindRow(words[0].text);
    if (!row) return Bad("no such command");
    if (words.size() < row->least_words || words.size() > row->most_words) {
        return Bad(std::string("usage: ") + row->usage);
    }
    return row->make({names, tool, words});
}

}  // namespace kestrane
