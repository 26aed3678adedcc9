#pragma once

// The tabs of the main form as operations know them: page, buttons, and what the journal calls
// their reads and writes.

#include <string_view>
#include <vector>

#include "configuration/settings.h"
#include "screen/control.h"

namespace kestrane {

enum class TabKind {
    kSettings,    // a button reads it and a button writes it
    kChangeover,  // live values come by the refresh; four buttons save it
    kFirmware,    // never shown; read through its button's handling
    kMacro,       // no page of its own: the editor's program
};

struct TabRow {
    const char* name;
    TabKind kind;
    int page;  // -1: none
    const char* read_button;
    const char* read_operation;
    const char* write_button;  // empty: not written by one button
    const char* write_operation;

    bool Holds(const Setting& setting) const { return std::string_view(name) == setting.tab; }
};

const std::vector<TabRow>& TabRows();
// Null for an unknown name.
const TabRow* FindTab(std::string_view name);
// The tab on whose page the control stands, at any depth; null for one outside.
const TabRow* TabOf(const Control& control);

}  // namespace kestrane
