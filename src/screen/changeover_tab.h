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

    ControlArray<TextBox> txtCurrent{"txtCurrent", Indices(3, 6), [this](ControlName name) {
                                         return std::make_unique<TextBox>(RowGroup(*name.index - 3),
                                                                          name, ValueBox());
                                     }};
    ControlArray<ScrollBar> scrCurrent{"scrCurrent", Indices(3, 6), [this](ControlName name) {
                                           return std::make_unique<ScrollBar>(
                                               RowGroup(*name.index - 3), name, ValueBar());
                                       }};
    ControlArray<TextBox> txtStartup{"txtStartup", Indices(0, 4), [this](ControlName name) {
                                         return std::make_unique<TextBox>(RowGroup(*name.index),
                                                                          name, ValueBox());
                                     }};
    ControlArray<ScrollBar> scrStartup{"scrStartup", Indices(0, 4), [this](ControlName name) {
                                           return std::make_unique<ScrollBar>(RowGroup(*name.index),
                                                                              name, ValueBar());
                                       }};

    Frame fraDefaultInlet{page, "fraDefaultInlet", "Default Inlet"};
    Frame fraDefaultInletLive{fraDefaultInlet, "fraDefaultInletLive", "Live"};
    ControlArray<OptionButton> optInLive{"optInLive", Indices(1, 5), [this](ControlName name) {
                                             return std::make_unique<OptionButton>(
                                                 fraDefaultInletLive, name,
                                                 InletCaption(*name.index));
                                         }};
    Frame fraDefaultInletStart{fraDefaultInlet, "fraDefaultInletStart", "Start"};
    ControlArray<OptionButton> optInE2P{"optInE2P", Indices(1, 5), [this](ControlName name) {
                                            return std::make_unique<OptionButton>(
                                                fraDefaultInletStart, name,
                                                InletCaption(*name.index));
                                        }};
    Label lblDefaultIn{fraDefaultInlet, "lblDefaultIn"};
    Label lblLockout{fraDefaultInlet, "lblLockout"};

    ControlArray<Button> cmdSaveCurrent{
        "cmdSaveCurrent", Indices(0, 1), [this](ControlName name) {
            return std::make_unique<Button>(
                *name.index == 0 ? fraChangeoverOptions : fraDefaultInlet, name, "Save as Live",
                ControlTraits{.enabled = false});
        }};
    ControlArray<Button> cmdSaveStartup{
        "cmdSaveStartup", Indices(0, 1), [this](ControlName name) {
            return std::make_unique<Button>(
                *name.index == 0 ? fraChangeoverOptions : fraDefaultInlet, name, "Save as Startup",
                ControlTraits{.enabled = false});
        }};
    Button cmdReadCMSOptions{page, "cmdReadCMSOptions", "Read Changeover Options"};
};

}  // namespace kestrane
