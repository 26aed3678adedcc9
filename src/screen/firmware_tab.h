#pragma once

// The tab "Firmware Versions" as data. No operation shows this tab; scripts use it by name.

#include "screen/kinds.h"

namespace kestrane {

struct FirmwareTab {
    TabPage& page;

    Frame fraFirmwareUpdate{page, "fraFirmwareUpdate", "Unit Firmware"};
    Label lblTypeText{fraFirmwareUpdate, "lblTypeText", "Model:"};
    Label lblType{fraFirmwareUpdate, "lblType", "-"};
    Label lblSerialNoText{fraFirmwareUpdate, "lblSerialNoText", "Serial number:"};
    Label lblSerialNo{fraFirmwareUpdate, "lblSerialNo", "-"};
    Label lblFittedColumn{fraFirmwareUpdate, "lblFittedColumn", "Fitted"};
    Label lblLatestColumn{fraFirmwareUpdate, "lblLatestColumn", "Latest"};
    Label lblRelayText{fraFirmwareUpdate, "lblRelayText", "Relay:"};
    Label lblRelayVersion{fraFirmwareUpdate, "lblRelayVersion", "-"};
    Label lblRelayLatest{fraFirmwareUpdate, "lblRelayLatest", "-"};
    Label lblDisplayText{fraFirmwareUpdate, "lblDisplayText", "Display:"};
    Label lblDisplayVersion{fraFirmwareUpdate, "lblDisplayVersion", "-"};
    Label lblDisplayLatest{fraFirmwareUpdate, "lblDisplayLatest", "-"};
    Label Label8{fraFirmwareUpdate, "Label8"};
    Button cmdRelayBootload{fraFirmwareUpdate, "cmdRelayBootload", "Relay Bootload"};
    // Four buttons without a click handling.
    Button cmdDisplayBootload{fraFirmwareUpdate, "cmdDisplayBootload", "Display Bootload"};
    Button cmdRelayExit{fraFirmwareUpdate, "cmdRelayExit", "Relay Exit Bootload"};
    Button cmdDisplayExit{fraFirmwareUpdate, "cmdDisplayExit", "Display Exit Bootload"};
    Button cmdFirmware{fraFirmwareUpdate, "cmdFirmware", "Firmware"};
    Button cmdGetUnitFirmware{page, "cmdGetUnitFirmware", "Get Unit Firmware Versions"};
};

}  // namespace kestrane
