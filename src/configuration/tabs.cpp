#include "configuration/tabs.h"

#include "screen/main_form.h"

namespace kestrane {
namespace {

const TabPage* PageOf(const Control& control) {
    for (const Container* at = &control.container(); at != nullptr; at = at->parent()) {
        if (const auto* page = dynamic_cast<const TabPage*>(at)) return page;
    }
    return nullptr;
}

}  // namespace

const std::vector<TabRow>& TabRows() {
    // clang-format off
    static const std::vector<TabRow> rows = {
        {"network",    TabKind::kSettings,   0,  "cmdReadNetworkSettings", "Read Network Settings",
         "cmdWriteNetworkSettings", "Write Network Settings"},
        {"privileges", TabKind::kSettings,   1,  "cmdReadTCPPortPriv",     "Read Port Privileges",
         "cmdWriteTCPPortPriv",     "Write Port Privileges"},
        {"security",   TabKind::kSettings,   2,  "cmdReadWBISettings",     "Read Web Security",
         "cmdWriteWBISettings",     "Write Web Security"},
        {"names",      TabKind::kSettings,   3,  "cmdReadChannelNames",    "Read Channel Names",
         "cmdWriteChannelNames",    "Write Channel Names"},
        {"triggers",   TabKind::kSettings,   4,  "cmdReadMacroTriggers",   "Read Macro Triggers",
         "cmdWriteMacroTriggers",   "Write Macro Triggers"},
        {"1wire",      TabKind::kSettings,   5,  "cmdRead1WNames",         "Read 1-Wire Settings",
         "cmdWrite1WNames",         "Write 1-Wire Names"},
        {"changeover", TabKind::kChangeover, 6,  "cmdReadCMSOptions",      "Read Changeover Options",
         "",                        ""},
        {"firmware",   TabKind::kFirmware,   7,  "cmdGetUnitFirmware",     "Read Firmware Versions",
         "",                        ""},
        {"macro",      TabKind::kMacro,      -1, "cmdEditMacro",           "Download Macro",
         "cmdUpload",               "Upload Macro"},
    };
    // clang-format on
    return rows;
}

const TabRow* FindTab(std::string_view name) {
    for (const TabRow& row : TabRows()) {
        if (name == row.name) return &row;
    }
    return nullptr;
}

const TabRow* TabOf(const Control& control) {
    const TabPage* const page = PageOf(control);
    if (!page) return nullptr;
    for (const TabRow& row : TabRows()) {
        if (row.page == page->index()) return &row;
    }
    return nullptr;
}

}  // namespace kestrane
