#pragma once

// The tab "Channel Names" as data.

#include "screen/kinds.h"

namespace kestrane {

struct NamesTab {
    TabPage& page;

    Frame fraInletNames{page, "fraInletNames", "Inlet Name(s)"};
    Label lblInletTop{fraInletNames, "lblInletTop", "Top Line"};
    Label lblInletBottom{fraInletNames, "lblInletBottom", "Bottom Line"};
    Label lblMain{fraInletNames, "lblMain", "Main:"};
    TextBox txtMainUpper{fraInletNames, "txtMainUpper", {.max_length = 8}};
    TextBox txtMainLower{fraInletNames, "txtMainLower", {.max_length = 8}};
    Label lblBackup{fraInletNames, "lblBackup", "Backup:", {.visible = false}};
    TextBox txtBackupUpper{fraInletNames, "txtBackupUpper", {.max_length = 8, .visible = false}};
    TextBox txtBackupLower{fraInletNames, "txtBackupLower", {.max_length = 8, .visible = false}};

    Frame fraOutletNames{page, "fraOutletNames", "Outet Names"};
    ControlArray<Label> lblTopLine{fraOutletNames, "lblTopLine", Indices(0, 1), "Top Line"};
    ControlArray<Label> lblBottomLine{fraOutletNames, "lblBottomLine", Indices(0, 1),
                                      "Bottom Line"};
    ControlArray<Label> lblOutlet{fraOutletNames, "lblOutlet", Indices(0, 13), [](int index) {
                                      return "Outlet " + std::to_string(index + 1) + ":";
                                  }};
    ControlArray<TextBox> txtOutUpper{fraOutletNames, "txtOutUpper", Indices(0, 13),
                                      TextBoxTraits{.max_length = 8}};
    ControlArray<TextBox> txtOutLower{fraOutletNames, "txtOutLower", Indices(0, 13),
                                      TextBoxTraits{.max_length = 8}};
    Button cmdReadChannelNames{
        page, "cmdReadChannelNames", "Read Channel Names", {.enabled = false}};
    Button cmdWriteChannelNames{
        page, "cmdWriteChannelNames", "Write Channel Names", {.enabled = false}};
};

}  // namespace kestrane
