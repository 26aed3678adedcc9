#include "forms/layout.h"
#include "forms/script_edit_window.h"
#include "macro/instruction_set.h"

namespace kestrane {
namespace {

constexpr int kColumns = 5;
constexpr int kMaskColumns = 4;

const char* TitleOf(InstructionGroup group) {
    switch (group) {
        case InstructionGroup::kProgram:
            return "Program";
        case InstructionGroup::kOutlets:
            return "Outlets";
        case InstructionGroup::kRequests:
            return "Requests";
        case InstructionGroup::kLocks:
            return "Locks";
        case InstructionGroup::kGpi:
            return "GPI";
        case InstructionGroup::kCounters:
            return "Counters";
        case InstructionGroup::kChangeover:
            return "Changeover";
        case InstructionGroup::kSwitch:
            return "Switch";
        case InstructionGroup::kInhibits:
            return "Inhibits";
    }
    return "";
}

InstructionGroup GroupOf(int opcode) {
    return FindInstruction(static_cast<std::uint8_t>(opcode))->group;
}

// The buttons of a group from `row` on. Opcodes with another first digit begin another row.
// Returns the row behind it.
int AddGroup(Mirror& mirror, QGridLayout* grid, ScriptEditForm& form, InstructionGroup group,
             int row, int columns) {
    int column = 0;
    int last_opcode = -1;
    for (const InsertButton& button : form.insert_buttons) {
        if (GroupOf(button.opcode) != group) continue;
        const bool other_digit = last_opcode >= 0 && last_opcode / 16 != button.opcode / 16;
        if (column == columns || other_digit) {
            ++row;
            column = 0;
        }
        last_opcode = button.opcode;
        grid->addWidget(mirror.Make(form.cmdInsertCommand(button.opcode)), row, ++column);
    }
    return row + 1;
}

QGridLayout* ButtonGrid() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(3);
    return grid;
}

// The numbers 1 to 14 over their boxes, a gap between the two groups.
QGridLayout* MaskBoxes(Mirror& mirror, ScriptEditForm& form) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kGap - 2);
    grid->setVerticalSpacing(2);
    for (int outlet = 0; outlet < ScriptEditForm::kOutlets; ++outlet) {
        const bool first_group = outlet < 8;
        const int column = first_group ? outlet : outlet + 1;
        QLabel* number = mirror.Make(form.Label1(outlet));
        grid->addWidget(number, 0, column, Qt::AlignCenter);
        const int bit = 1 << (first_group ? outlet : outlet - 8);
        QCheckBox* box = mirror.Make(first_group ? form.chkOutGroup1(bit) : form.chkOutGroup2(bit));
        box->setAccessibleName(QStringLiteral("Outlet %1").arg(outlet + 1));
        grid->addWidget(box, 1, column, Qt::AlignCenter);
    }
    grid->setColumnMinimumWidth(8, kGap);
    return grid;
}

}  // namespace

QWidget* BuildInstructionButtons(Mirror& mirror, ScriptEditForm& form) {
    auto* panel = new QWidget;
    auto* outer = new QVBoxLayout(panel);
    outer->setContentsMargins(0, 0, 0, 0);
    QGridLayout* grid = ButtonGrid();
    outer->addLayout(grid);
    int row = 0;
    for (const auto group :
         {InstructionGroup::kProgram, InstructionGroup::kOutlets, InstructionGroup::kRequests,
          InstructionGroup::kGpi, InstructionGroup::kCounters, InstructionGroup::kChangeover,
          InstructionGroup::kSwitch}) {
        QLabel* title = Caption(QLatin1String(TitleOf(group)));
        grid->addWidget(title, row, 0);
        row = AddGroup(mirror, grid, form, group, row, kColumns);
        grid->setRowMinimumHeight(row++, kGap - 2);
    }
    grid->setColumnStretch(kColumns + 1, 1);
    return panel;
}

QWidget* BuildOutletMasks(Mirror& mirror, ScriptEditForm& form) {
    FrameView* frame = mirror.Make(form.fraOutlets);
    QGridLayout* grid = GridIn(frame);
    grid->setContentsMargins(kMargin, kGap - 2, kMargin, kGap - 2);
    auto* builder = Column();
    builder->setSpacing(kGap);
    builder->addLayout(MaskBoxes(mirror, form));
    auto* fields = new QGridLayout;
    fields->setSpacing(kGap);
    AddField(mirror, fields, 0, 0, form.Label2, form.txtGroup1, 3)->UseFixedPitch();
    AddField(mirror, fields, 1, 0, form.Label3, form.txtGroup2, 3)->UseFixedPitch();
    fields->addWidget(mirror.Make(form.cmdClearLocks), 0, 2);
    fields->addWidget(mirror.Make(form.cmdReadLocks), 1, 2);
    fields->setColumnStretch(3, 1);
    builder->addLayout(fields);
    grid->addLayout(builder, 0, 0, Qt::AlignTop);
    grid->setColumnMinimumWidth(1, 2 * kGap);

    QGridLayout* buttons = ButtonGrid();
    buttons->addWidget(mirror.Make(form.Label4), 0, 0);
    int row = AddGroup(mirror, buttons, form, InstructionGroup::kInhibits, 0, 3);
    buttons->addWidget(mirror.Make(form.Label5), row, 0);
    AddGroup(mirror, buttons, form, InstructionGroup::kLocks, row, kMaskColumns);
    grid->addLayout(buttons, 0, 2, Qt::AlignTop);
    grid->setColumnStretch(3, 1);
    return frame;
}

}  // namespace kestrane
