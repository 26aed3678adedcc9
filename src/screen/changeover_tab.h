#pragma once

// The tab "Changeover Options" as data: live values beside startup values. The index of a live
// box is the position of its value in the status record; a startup box has the offset of its
// byte in the startup record. Scroll bars run upside down: 255 minus the value.

#include "screen/kinds.h"

namespace kestrane {

struct ChangeoverTab {
    static constexpr TextBoxTraits ValueBox() { return {.text = "000", .max_length = 3}; }
    static constexpr ScrollBarTraits ValueBar() {
        return {.min = 0, .max = 255, .value = 255, .small_change = 1, .large_change = 10};
    }
    static const char* InletCaption(int index) {
        static constexpr const char* kCaptions[] = {"A sync", "B sync", "No preference",
                                                    "A non sync", "B non sync"};
        return kCaptions[index - 1];
    }

    // The group that a row's boxes stand in: 0 to 4 in the order of the startup record.
    Frame& RowGroup(int row) {
        Frame* const groups[] = {&grpOffTimeMain, &grpOffTimeBackup, &grpPhase, &grpChangeBackDelay,
                                 &grpAlarm};
        return *groups[row];
    }
    // Where a row's live and startup boxes stand, by the index of the box.
    std::function<Container&(int)> LiveRow() {
        return [this](int index) -> Container& { return RowGroup(index - 3); };
    }
    std::function<Container&(int)> StartupRow() {
        return [this](int index) -> Container& { return RowGroup(index); };
    }
    // The save buttons of the values, 0, and of the inlet, 1.
    std::function<Container&(int)> SavedPart() {
        return [this](int part) -> Container& {
            return part == 0 ? fraChangeoverOptions : fraDefaultInlet;
        };
    }

    TabPage& page;

    Frame fraChangeoverOptions{page, "fraChangeoverOptions", "Changeover Options"};
    Frame grpOffTimeMain{fraChangeoverOptions, "grpOffTimeMain", "Off Time Main"};
    Label lblOffTimeMain{grpOffTimeMain, "lblOffTimeMain"};
    Frame grpOffTimeBackup{fraChangeoverOptions, "grpOffTimeBackup", "Off Time Backup"};
    Label lblOffTimeBackup{grpOffTimeBackup, "lblOffTimeBackup"};
    Frame grpPhase{fraChangeoverOptions, "grpPhase", "Phase"};
    Label lblPhase{grpPhase, "lblPhase"};
    Frame grpChangeBackDelay{fraChangeoverOptions, "grpChangeBackDelay",
                             "Change Back (multiples of ten seconds)"};
    Label lblChangeBack{grpChangeBackDelay, "lblChangeBack"};
    Frame grpAlarm{fraChangeoverOptions, "grpAlarm", "Default Alarm"};
    Label lblAlarmDefault{grpAlarm, "lblAlarmDefault", " 0 for off (faulty), 3 for flash and beep"};
    Label lblLiveColumn{fraChangeoverOptions, "lblLiveColumn", "Live"};
    Label lblStartupColumn{fraChangeoverOptions, "lblStartupColumn", "Startup"};

    ControlArray<TextBox> txtCurrent{LiveRow(), "txtCurrent", Indices(3, 6), ValueBox()};
    ControlArray<ScrollBar> scrCurrent{LiveRow(), "scrCurrent", Indices(3, 6), ValueBar()};
    ControlArray<TextBox> txtStartup{StartupRow(), "txtStartup", Indices(0, 4), ValueBox()};
    ControlArray<ScrollBar> scrStartup{StartupRow(), "scrStartup", Indices(0, 4), ValueBar()};

    Frame fraDefaultInlet{page, "fraDefaultInlet", "Default Inlet"};
    Frame fraDefaultInletLive{fraDefaultInlet, "fraDefaultInletLive", "Live"};
    ControlArray<OptionButton> optInLive{fraDefaultInletLive, "optInLive", Indices(1, 5),
                                         InletCaption};
    Frame fraDefaultInletStart{fraDefaultInlet, "fraDefaultInletStart", "Start"};
    ControlArray<OptionButton> optInE2P{fraDefaultInletStart, "optInE2P", Indices(1, 5),
                                        InletCaption};
    Label lblDefaultIn{fraDefaultInlet, "lblDefaultIn"};
    Label lblLockout{fraDefaultInlet, "lblLockout"};

    ControlArray<Button> cmdSaveCurrent{SavedPart(), "cmdSaveCurrent", Indices(0, 1),
                                        "Save as Live", ControlTraits{.enabled = false}};
    ControlArray<Button> cmdSaveStartup{SavedPart(), "cmdSaveStartup", Indices(0, 1),
                                        "Save as Startup", ControlTraits{.enabled = false}};
    Button cmdReadCMSOptions{page, "cmdReadCMSOptions", "Read Changeover Options"};
};

}  // namespace kestrane
