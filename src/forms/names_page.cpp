#include "forms/layout.h"
#include "forms/pages.h"

namespace kestrane {
namespace {

constexpr int kOutletsInColumn = 7;

void AddName(Mirror& mirror, QGridLayout* grid, int row, int column, Label& caption, TextBox& upper,
             TextBox& lower) {
    grid->addWidget(mirror.Make(caption), row, column);
    int place = column;
    for (TextBox* line : {&upper, &lower}) {
        TextBoxView* box = mirror.Make(*line, 10);
        box->setAccessibleName(QString::fromStdString(caption.Caption()) +
                               (line == &upper ? " top line" : " bottom line"));
        grid->addWidget(box, row, ++place, Qt::AlignLeft);
    }
}

FrameView* Inlets(Mirror& mirror, NamesTab& tab) {
    FrameView* frame = mirror.Make(tab.fraInletNames);
    QGridLayout* grid = GridIn(frame);
    grid->addWidget(mirror.Make(tab.lblInletTop), 0, 1);
    grid->addWidget(mirror.Make(tab.lblInletBottom), 0, 2);
    AddName(mirror, grid, 1, 0, tab.lblMain, tab.txtMainUpper, tab.txtMainLower);
    AddName(mirror, grid, 2, 0, tab.lblBackup, tab.txtBackupUpper, tab.txtBackupLower);
    grid->setColumnStretch(3, 1);
    return frame;
}

FrameView* Outlets(Mirror& mirror, NamesTab& tab) {
    FrameView* frame = mirror.Make(tab.fraOutletNames);
    QGridLayout* grid = GridIn(frame);
    for (int half = 0; half < 2; ++half) {
        const int column = 4 * half;
        grid->addWidget(mirror.Make(tab.lblTopLine(half)), 0, column + 1);
        grid->addWidget(mirror.Make(tab.lblBottomLine(half)), 0, column + 2);
        for (int i = 0; i < kOutletsInColumn; ++i) {
            const int outlet = half * kOutletsInColumn + i;
            AddName(mirror, grid, i + 1, column, tab.lblOutlet(outlet), tab.txtOutUpper(outlet),
                    tab.txtOutLower(outlet));
        }
    }
    grid->setColumnMinimumWidth(3, 4 * kGap);
    grid->setColumnStretch(7, 1);
    return frame;
}

}  // namespace

QWidget* BuildNamesPage(Mirror& mirror, NamesTab& tab) {
    auto* page = new PinnedPage;
    QVBoxLayout* outer = page->content();
    QHBoxLayout* frames = RowOfFrames();
    frames->addWidget(Inlets(mirror, tab), 0, Qt::AlignTop);
    frames->addWidget(Outlets(mirror, tab), 0, Qt::AlignTop);
    frames->addStretch(1);
    outer->addLayout(frames);
    outer->addStretch(1);
    page->Pin(ButtonRow(mirror, {&tab.cmdReadChannelNames, &tab.cmdWriteChannelNames}));
    return page;
}

}  // namespace kestrane
