#pragma once

// The commands that make something happen on the screen: what the operator's hand can do (click,
// type, key, press, leave, choose, close) and what the program can do (assign, raise). A line is
// made into an action first, so that it can be refused before anything has run.

#include <functional>
#include <string>
#include <vector>

#include "console/names.h"
#include "console/values.h"
#include "console/words.h"
#include "screen/hand.h"

namespace kestrane {

struct Action {
    // Why it would be refused at this moment. May be empty: never.
    std::function<Refusal()> check;
    // Does it; returns when its handling has.
    std::function<Refusal()> run;
    // It closes the main form and does not return.
    bool ends_program = false;
    // What the answer says afterwards; empty: nothing.
    std::function<Json()> value = {};
};

struct MadeAction {
    Action action;
    std::string error;  // why the words are no action; empty if they are one
};

// Whether the word names one of these commands.
bool IsAction(const std::string& command);

// How each of them is written.
std::vector<std::string> ActionUsages();

// `words` begin with the command.
MadeAction MakeAction(const Names& names, Tool& tool, const std::vector<Word>& words);

}  // namespace kestrane
