#pragma once

// The macro editor "frmScriptEdit" as data: the live picture of the unit, the listing, the outlet
// masks and a button for each instruction. The instructions are not known here: whoever makes the
// form hands in the rows of its buttons.

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "screen/form.h"

namespace kestrane {

// One button of cmdInsertCommand; the index is the opcode.
struct InsertButton {
    int opcode = 0;
    std::string caption;
    std::optional<Colour> back_colour;
    bool takes_mask = false;  // stands in the frame of the outlet masks
};

struct ScriptEditForm : Form {
    static constexpr int kRows = 16;       // of the listing
    static constexpr int kPositions = 16;  // of the picture: 14 outlets, then the inlets
    static constexpr int kOutlets = 14;
    static constexpr int kFirstInlet = 14;
    static constexpr int kSecondInlet = 15;
    static constexpr int kUpperNames = 101;  // lblDesi of the first position
    static constexpr int kLowerNames = 201;

    static constexpr Colour kOffColour = 0x8080FF;
    static constexpr Colour kOnColour = 0xC0FFC0;  // of an outlet that is on

    ScriptEditForm(Screen& on_screen, std::vector<InsertButton> buttons)
        : Form(on_screen, "frmScriptEdit", "Kestrane Macro Editor"),
          insert_buttons(std::move(buttons)) {
        for (const InsertButton& row : insert_buttons) {
            if (row.back_colour) cmdInsertCommand(row.opcode).SetBackColor(*row.back_colour);
        }
        for (Button& button : cmdOn) button.SetBackColor(kGreen);
        for (Button& button : cmdOff) button.SetBackColor(kOffColour);
    }

    const std::vector<InsertButton> insert_buttons;

    // The picture of the unit.
    Label lblTitle{*this, "lblTitle", "Unit Location"};
    Label lblTitle2{*this, "lblTitle2", "Unit Name"};
    ControlArray<Label> lblFuseNo{
        *this, "lblFuseNo", Indices(0, kPositions - 1),
        [](int index) { return index < kOutlets ? std::to_string(index + 1) : std::string(); }};
    ControlArray<Light> pbLED{*this, "pbLED", Indices(0, kPositions - 1)};
    ControlArray<Image> imgFuse{*this, "imgFuse", Indices(0, kPositions - 1)};
    Image imgFuse2Block{*this, "imgFuse2Block"};
    ControlArray<Image> imgFuse7Block{*this, "imgFuse7Block", Indices(0, 1)};
    ControlArray<Label> lblDesi{*this, "lblDesi", NameIndices()};
    ControlArray<Button> cmdOn{*this, "cmdOn", Indices(0, kOutlets - 1), OutletCaption("ON ")};
    ControlArray<Button> cmdOff{*this, "cmdOff", Indices(0, kOutlets - 1), OutletCaption("OFF ")};
    CheckBox chkWait{*this, "chkWait", "Always wait"};

    Label lblTopStatus{*this, "lblTopStatus"};

    // The listing, one entry of each array in a row.
    ScrollBar scrListScroll{
        *this,
        "scrListScroll",
        {.min = 16, .max = 127, .value = 16, .small_change = 1, .large_change = 16}};
    ControlArray<Label> lblMem{*this, "lblMem", Indices(0, kRows - 1)};
    ControlArray<Label> lblMem1{*this, "lblMem1", Indices(0, kRows - 1)};
    ControlArray<Label> lblMem2{*this, "lblMem2", Indices(0, kRows - 1)};
    ControlArray<Label> lblCommand{*this, "lblCommand", Indices(0, kRows - 1)};
    ControlArray<Shape> shpOutline{*this, "shpOutline", Indices(0, kRows - 1), false};

    Label lblSecondByteHex{*this, "lblSecondByteHex", "Second Byte Hex"};
    TextBox txtSecondByteHex{*this, "txtSecondByteHex", {.text = "00"}};
    Button cmdSecondByteHexOK{*this, "cmdSecondByteHexOK", "OK"};
    Label lblSecondByteTime{*this, "lblSecondByteTime", "Second Byte As Time"};
    TextBox txtSecondByteTime{*this, "txtSecondByteTime", {.text = "0.0"}};
    Label lblSecs{*this, "lblSecs", "Secs"};
    Button cmdSecondByteTimeOK{*this, "cmdSecondByteTimeOK", "OK"};
    CheckBox chkAutoIncrement{*this, "chkAutoIncrement", "Auto increment"};

    // The outlet masks. The index of a box is its bit in the mask.
    Frame fraOutlets{*this, "fraOutlets", "Control Level / Latch On / Lock Off"};
    Label Label4{fraOutlets, "Label4", "Control Level Inhibit"};
    Label Label5{fraOutlets, "Label5", "Latch On Lock Off"};
    ControlArray<Label> Label1{fraOutlets, "Label1", Indices(0, kOutlets - 1),
                               [](int index) { return std::to_string(index + 1); }};
    ControlArray<CheckBox> chkOutGroup1{fraOutlets, "chkOutGroup1", {1, 2, 4, 8, 16, 32, 64, 128}};
    ControlArray<CheckBox> chkOutGroup2{fraOutlets, "chkOutGroup2", {1, 2, 4, 8, 16, 32}};
    Label Label2{fraOutlets, "Label2", "Hex for outlets 1 - 8"};
    TextBox txtGroup1{fraOutlets, "txtGroup1", {.text = "00"}};
    Label Label3{fraOutlets, "Label3", "Hex for outlets 9 - 14"};
    TextBox txtGroup2{fraOutlets, "txtGroup2", {.text = "00"}};
    Button cmdClearLocks{fraOutlets, "cmdClearLocks", "CLEAR LOCKS"};
    Button cmdReadLocks{fraOutlets, "cmdReadLocks", "READ LOCKS"};

    // The other instructions stand on the form itself, those with a mask in the frame.
    ControlArray<Button> cmdInsertCommand{
        [this](int opcode) -> Container& {
            return RowOf(opcode).takes_mask ? static_cast<Container&>(fraOutlets) : *this;
        },
        "cmdInsertCommand", ButtonIndices(), [this](int opcode) { return RowOf(opcode).caption; }};

    CheckBox chkTrace{*this, "chkTrace", "Trace"};
    Button cmdGetStatus{*this, "cmdGetStatus", "Get Status"};
    TextBox txtGoTo{*this, "txtGoTo", {.text = "10"}};
    Button cmdGoTo{*this, "cmdGoTo", "GO TO"};
    Button cmdDownload{*this, "cmdDownload", "DOWNLOAD"};
    Button cmdUpload{*this, "cmdUpload", "UPLOAD"};
    Button cmdLoadFile{*this, "cmdLoadFile", "LOAD FILE"};
    Button cmdSaveFile{*this, "cmdSaveFile", "SAVE FILE"};
    Button cmdClearMem{*this, "cmdClearMem", "CLEAR MEMORY"};
    Button cmdBasicSettings{*this, "cmdBasicSettings", "STANDARD SETTINGS"};
    Button cmdExit{*this, "cmdExit", "EXIT"};

    Timer timUpdate{*this, "timUpdate", {.interval = 100}};
    Timer timTrace{*this, "timTrace", {.interval = 100}};
    Timer timUDColour{*this, "timUDColour", {.interval = 1000}};

  private:
    static std::vector<int> NameIndices() {
        std::vector<int> indices = Indices(kUpperNames, kUpperNames + kPositions - 1);
        for (int i = 0; i < kPositions; ++i) indices.push_back(kLowerNames + i);
        return indices;
    }

    std::vector<int> ButtonIndices() const {
        std::vector<int> indices;
        for (const InsertButton& row : insert_buttons) indices.push_back(row.opcode);
        return indices;
    }

    const InsertButton& RowOf(int opcode) const {
        return *std::find_if(insert_buttons.begin(), insert_buttons.end(),
                             [opcode](const InsertButton& row) { return row.opcode == opcode; });
    }

    static std::function<std::string(int)> OutletCaption(const char* word) {
        return [word](int index) { return word + std::to_string(index + 1); };
    }
};

}  // namespace kestrane
