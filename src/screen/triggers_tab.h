#pragma once

// The tab "Macro Triggers" as data.

#include "screen/kinds.h"

namespace kestrane {

struct TriggersTab {
    static constexpr int kRows = 8;

    TabPage& page;

    Frame fraMacroTrigger{page, "fraMacroTrigger", "Macro Triggers"};
    Label lblMTName{fraMacroTrigger, "lblMTName", "Macro Name"};
    Label lblMTAddress{fraMacroTrigger, "lblMTAddress", "Address (hex)"};
    Label lblMTEnable{fraMacroTrigger, "lblMTEnable", "Enable"};
    ControlArray<Label> lblMacro{fraMacroTrigger, "lblMacro", Indices(0, kRows - 1), [](int index) {
                                     return "Macro " + std::to_string(index + 1) + ":";
                                 }};
    ControlArray<TextBox> txtMTName{fraMacroTrigger, "txtMTName", Indices(0, kRows - 1),
                                    TextBoxTraits{.max_length = 14}};
    ControlArray<TextBox> txtMTPage{fraMacroTrigger, "txtMTPage", Indices(0, kRows - 1),
                                    TextBoxTraits{.text = "0", .max_length = 1, .visible = false}};
    ControlArray<TextBox> txtMTAddress{fraMacroTrigger, "txtMTAddress", Indices(0, kRows - 1),
                                       TextBoxTraits{.max_length = 2}};
    ControlArray<CheckBox> chkMacro{fraMacroTrigger, "chkMacro", Indices(0, kRows - 1)};
    Button cmdEditMacro{page, "cmdEditMacro", "Edit Macro"};
    Button cmdReadMacroTriggers{
        page, "cmdReadMacroTriggers", "Read Macro Triggers", {.enabled = false}};
    Button cmdWriteMacroTriggers{
        page, "cmdWriteMacroTriggers", "Write Macro Triggers", {.enabled = false}};
};

}  // namespace kestrane
