#pragma once

// The tabs as the calls know them: name, page, buttons, and how a finished read or write shows.

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool/tool.h"

namespace kestrane {

enum class TabKind {
    kSettings,    // has a read button; the last caption tells
    kChangeover,  // its live values come later, by the refresh
    kFirmware,    // never shown; read through its button's handling
    kMacro,       // no page of its own: the editor's program
};

struct TabRow {
    const char* name;
    TabKind kind;
    int page;
    const char* read_button;
    const char* read_done;     // caption of lblMemoryBlock
    const char* write_button;  // empty: not written by one button
    const char* write_done;
};

const std::vector<TabRow>& TabRows();
const TabRow* FindTab(std::string_view name);
// The tab on whose page the control stands, at any depth; null for one outside.
const TabRow* TabOf(const Control& control);

// The controls of a tab that hold values, in the order of the screen: boxes, options, lists, and
// the labels that show what was read. Scroll bars are left out, as each mirrors a box; so are the
// hidden boxes of the password hashing, as what stands there is drawn afresh each time.
std::vector<Control*> ValueControls(const MainForm& form, const TabRow& tab);

// The label that stands for a control on the screen, or null.
Label* LabelOf(const Control& control);

}  // namespace kestrane
