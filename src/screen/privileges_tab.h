#pragma once

// The tab "TCP Port Privileges" as data. The indices carry meaning: 100 for the relay board and
// 200 for the display board, plus 10 for each port from 1, plus the bit.

#include "screen/kinds.h"

namespace kestrane {

struct PrivilegesTab {
    // The members of chkPriv, relay board first, column by column.
    static std::vector<int> BoxIndices() {
        std::vector<int> indices;
        for (const int board : {100, 200}) {
            for (const int port : {10, 20, 30}) {
                for (int bit = 0; bit < 8; ++bit) indices.push_back(board + port + bit);
            }
        }
        return indices;
    }

    static const char* RowCaption(int index) {
        static constexpr const char* kRelay[] = {"Write own privileges",   "Read other privileges",
                                                 "Write other privileges", "Live control",
                                                 "Reset min/max",          "Write macro memory",
                                                 "Commit 1-Wire sensors",  "Changeover settings"};
        static constexpr const char* kDisplay[] = {"Write own privileges",
                                                   "Read other privileges",
                                                   "Write other privileges",
                                                   "-",
                                                   "-",
                                                   "Write names",
                                                   "-",
                                                   "Network configuration"};
        return index < 200 ? kRelay[index - 100] : kDisplay[index - 200];
    }

    static const char* Caption(int index) {
        switch (index) {
            case 1:
                return "RELAY";
            case 2:
                return "DISPLAY";
            case 111:
            case 211:
                return "A";
            case 112:
            case 212:
                return "B";
            case 113:
            case 213:
                return "C";
            default:
                return RowCaption(index);
        }
    }

    TabPage& page;

    Frame fraTcpControlSettings{page, "fraTcpControlSettings", "TCP Port Privileges"};
    ControlArray<Label> lblPriv{fraTcpControlSettings,
                                "lblPriv",
                                {1,   100, 101, 102, 103, 104, 105, 106, 111, 112, 113, 2,
                                 200, 201, 202, 203, 204, 205, 206, 207, 211, 212, 213},
                                Caption};
    ControlArray<Label> lblPrivRelay{fraTcpControlSettings, "lblPrivRelay", {107}, RowCaption(107)};
    ControlArray<CheckBox> chkPriv{fraTcpControlSettings, "chkPriv", BoxIndices()};
    ControlArray<Label> lblPrivByte{
        fraTcpControlSettings,
        "lblPrivByte",
        {110, 120, 130, 1110, 1120, 1130, 210, 220, 230, 1210, 1220, 1230},
        "000"};
    Button cmdReadTCPPortPriv{page, "cmdReadTCPPortPriv", "Read TCP Port Privileges"};
    Button cmdWriteTCPPortPriv{
        page, "cmdWriteTCPPortPriv", "Write TCP Port Privileges", {.enabled = false}};
};

}  // namespace kestrane
