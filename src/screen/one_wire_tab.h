#pragma once

// The tab "1-Wire Settings" as data: the live table, the committed table and the names, side by
// side in 16 slots.

#include "screen/kinds.h"

namespace kestrane {

struct OneWireTab {
    static constexpr int kSlots = 16;

    TabPage& page;

    Frame fra1WireSettings{page, "fra1WireSettings", "1-Wire Sensors"};
    ControlArray<Label> lblSense{fra1WireSettings, "lblSense", Indices(0, 3), [](int index) {
                                     static constexpr const char* kCaptions[] = {
                                         "Sensor Address", "Type", "Committed", "Sensor Name"};
                                     return kCaptions[index];
                                 }};
    ControlArray<Label> lbl1WAddress{fra1WireSettings, "lbl1WAddress", Indices(0, kSlots - 1)};
    ControlArray<Label> lbl1WType{fra1WireSettings, "lbl1WType", Indices(0, kSlots - 1)};
    ControlArray<Label> lbl1We2p{fra1WireSettings, "lbl1We2p", Indices(0, kSlots - 1)};
    ControlArray<TextBox> txt1WName{fra1WireSettings, "txt1WName", Indices(0, kSlots - 1),
                                    TextBoxTraits{.max_length = 8}};
    Label lbl1WTotalText{fra1WireSettings, "lbl1WTotalText", "Total Sensors Found:"};
    Label lbl1WTotal{fra1WireSettings, "lbl1WTotal"};

    Frame fraSensorTypes{page, "fraSensorTypes", "Sensor Types"};
    ControlArray<Label> lblSensorType{
        fraSensorTypes, "lblSensorType", Indices(0, 4), [](int index) {
            static constexpr const char* kLegend[] = {
                "MS-T = Temperature Module", "MS-TH = Temperature/Humidity Module",
                "T = Single temperature sensor on cable", "TS-x = Temperature String and position",
                "?? = Unknown Sensor"};
            return kLegend[index];
        }};

    Button cmdRead1WNames{page, "cmdRead1WNames", "Read 1-Wire Settings"};
    Button cmdWrite1WNames{page, "cmdWrite1WNames", "Write 1-Wire Names", {.enabled = false}};
    Button cmdRead1WLive{page, "cmdRead1WLive", "Read Live Addresses"};
    Button cmd1WireClear{page, "cmd1WireClear", "Clear 1-Wire Addresses"};
    Button cmd1WireCommit{page, "cmd1WireCommit", "Commit 1-Wire Addresses"};
    Button cmdResetMinMax{page, "cmdResetMinMax", "Reset min/max"};
};

}  // namespace kestrane
