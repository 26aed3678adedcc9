#include "forms/layout.h"
#include "forms/pages.h"

namespace kestrane {
namespace {

QLabel* Cell(Mirror& mirror, Label& label, const char* widest) {
    QLabel* cell = mirror.Make(label);
    cell->setFont(FixedPitch());
    ReserveWidth(cell, widest);
    return cell;
}

FrameView* Sensors(Mirror& mirror, OneWireTab& tab) {
    FrameView* frame = mirror.Make(tab.fra1WireSettings);
    QGridLayout* grid = GridIn(frame);
    grid->setVerticalSpacing(2);
    grid->setHorizontalSpacing(2 * kGap);
    for (int i = 0; i < 4; ++i) grid->addWidget(mirror.Make(tab.lblSense(i)), 0, i + 1);
    for (int i = 0; i < OneWireTab::kSlots; ++i) {
        const int row = i + 1;
        QLabel* number = Caption(QString::number(row));
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(number, row, 0);
        grid->addWidget(Cell(mirror, tab.lbl1WAddress(i), "Firmware >= 1.4.3"), row, 1);
        grid->addWidget(Cell(mirror, tab.lbl1WType(i), "MS-TH"), row, 2);
        grid->addWidget(Cell(mirror, tab.lbl1We2p(i), "No Sensor committed"), row, 3);
        TextBoxView* name = mirror.Make(tab.txt1WName(i), 10);
        name->setAccessibleName(QStringLiteral("Sensor name %1").arg(row));
        grid->addWidget(name, row, 4);
    }
    QHBoxLayout* total = Row();
    total->addWidget(mirror.Make(tab.lbl1WTotalText));
    total->addWidget(mirror.Make(tab.lbl1WTotal));
    total->addStretch(1);
    grid->addLayout(total, OneWireTab::kSlots + 1, 1, 1, 4);
    return frame;
}

FrameView* Legend(Mirror& mirror, OneWireTab& tab) {
    FrameView* frame = KeepReadable(mirror.Make(tab.fraSensorTypes));
    QGridLayout* grid = GridIn(frame);
    int row = 0;
    for (Label& line : tab.lblSensorType)
        grid->addWidget(KeepReadable(mirror.Make(line)), row++, 0);
    return frame;
}

}  // namespace

QWidget* BuildOneWirePage(Mirror& mirror, OneWireTab& tab) {
    auto* page = new PinnedPage;
    QVBoxLayout* outer = page->content();
    QHBoxLayout* frames = RowOfFrames();
    frames->addWidget(Sensors(mirror, tab), 0, Qt::AlignTop);
    QVBoxLayout* side = Column();
    side->addWidget(Legend(mirror, tab));
    auto* actions = Column();
    actions->setSpacing(kGap);
    for (Button* button :
         {&tab.cmdRead1WLive, &tab.cmd1WireCommit, &tab.cmd1WireClear, &tab.cmdResetMinMax}) {
        actions->addWidget(mirror.Make(*button));
    }
    side->addLayout(actions);
    side->addStretch(1);
    frames->addLayout(side);
    frames->addStretch(1);
    outer->addLayout(frames, 1);
    page->Pin(ButtonRow(mirror, {&tab.cmdRead1WNames, &tab.cmdWrite1WNames}));
    return page;
}

}  // namespace kestrane
