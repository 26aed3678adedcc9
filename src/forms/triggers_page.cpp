#include "forms/layout.h"
#include "forms/pages.h"

namespace kestrane {

QWidget* BuildTriggersPage(Mirror& mirror, TriggersTab& tab) {
    auto* page = new PinnedPage;
    QVBoxLayout* outer = page->content();
    FrameView* frame = mirror.Make(tab.fraMacroTrigger);
    QGridLayout* grid = GridIn(frame);
    grid->setVerticalSpacing(kGap);
    grid->addWidget(mirror.Make(tab.lblMTName), 0, 1);
    grid->addWidget(mirror.Make(tab.lblMTAddress), 0, 3);
    grid->addWidget(mirror.Make(tab.lblMTEnable), 0, 4, Qt::AlignCenter);
    for (int i = 0; i < TriggersTab::kRows; ++i) {
        const std::string& caption = tab.lblMacro(i).Caption();
        AddField(mirror, grid, i + 1, 0, tab.lblMacro(i), tab.txtMTName(i), 16);
        TextBoxView* page_number = mirror.Make(tab.txtMTPage(i), 2);
        page_number->setAccessibleName(QString::fromStdString(caption + " page"));
        grid->addWidget(page_number, i + 1, 2);
        TextBoxView* address = mirror.Make(tab.txtMTAddress(i), 4);
        address->setAccessibleName(QString::fromStdString(caption + " address"));
        address->UseFixedPitch();
        grid->addWidget(address, i + 1, 3, Qt::AlignLeft);
        QCheckBox* enable = mirror.Make(tab.chkMacro(i));
        enable->setAccessibleName(QString::fromStdString(caption + " enable"));
        grid->addWidget(enable, i + 1, 4, Qt::AlignCenter);
    }
    outer->addWidget(frame, 0, Qt::AlignLeft);
    outer->addStretch(1);
    QHBoxLayout* buttons =
        ButtonRow(mirror, {&tab.cmdReadMacroTriggers, &tab.cmdWriteMacroTriggers});
    buttons->addWidget(mirror.Make(tab.cmdEditMacro));
    page->Pin(buttons);
    return page;
}

}  // namespace kestrane
