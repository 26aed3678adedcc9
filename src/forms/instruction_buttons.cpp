#include "forms/layout.h"
#include "forms/script_edit_window.h"
#include "macro/instruction_set.h"

namespace kestrane {
namespace {

constexpr int kNarrowPadding = 12;

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

// The buttons of a group, as many side by side as there is room for.
QWidget* Group(Mirror& mirror, ScriptEditForm& form, InstructionGroup group) {
    auto* widget = new QWidget;
    auto* flow = new ButtonFlow(widget);
    for (const InsertButton& button : form.insert_buttons) {
        if (GroupOf(button.opcode) != group) continue;
        ButtonView* view = mirror.Make(form.cmdInsertCommand(button.opcode));
        view->SetPadding(kNarrowPadding);
        flow->addWidget(view);
    }
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    widget->setSizePolicy(policy);
    return widget;
}

QGridLayout* GroupGrid() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kGap - 2);
    grid->setColumnStretch(1, 1);
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
    outer->setContentsMargins(0, 0, kGap, 0);
    QGridLayout* grid = GroupGrid();
    outer->addLayout(grid);
    int row = 0;
    for (const auto group :
         {InstructionGroup::kProgram, InstructionGroup::kOutlets, InstructionGroup::kRequests,
          InstructionGroup::kGpi, InstructionGroup::kCounters, InstructionGroup::kChangeover,
          InstructionGroup::kSwitch}) {
        grid->addWidget(Caption(QLatin1String(TitleOf(group))), row, 0, Qt::AlignTop);
        grid->addWidget(Group(mirror, form, group), row++, 1);
    }
    return panel;
}

QWidget* BuildOutletMasks(Mirror& mirror, ScriptEditForm& form) {
    FrameView* frame = mirror.Make(form.fraOutlets);
    QGridLayout* grid = GridIn(frame);
    grid->setContentsMargins(kMargin, kGap - 2, kMargin, kGap - 2);
    QHBoxLayout* boxes = Row();
    boxes->addLayout(MaskBoxes(mirror, form));
    boxes->addStretch(1);
    grid->addLayout(boxes, 0, 0);
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(kGap);
    fields->setVerticalSpacing(kSmallGap);
    AddField(mirror, fields, 0, 0, form.Label2, form.txtGroup1, 3)->UseFixedPitch();
    AddField(mirror, fields, 1, 0, form.Label3, form.txtGroup2, 3)->UseFixedPitch();
    fields->addWidget(mirror.Make(form.cmdClearLocks), 0, 2);
    fields->addWidget(mirror.Make(form.cmdReadLocks), 1, 2);
    fields->setColumnStretch(3, 1);
    grid->addLayout(fields, 1, 0);
    QGridLayout* groups = GroupGrid();
    groups->addWidget(mirror.Make(form.Label4), 0, 0, 1, 2);
    groups->addWidget(Group(mirror, form, InstructionGroup::kInhibits), 1, 0, 1, 2);
    groups->addWidget(mirror.Make(form.Label5), 2, 0, 1, 2);
    groups->addWidget(Group(mirror, form, InstructionGroup::kLocks), 3, 0, 1, 2);
    grid->addLayout(groups, 2, 0);
    return frame;
}

}  // namespace kestrane
