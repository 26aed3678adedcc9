#include "forms/layout.h"
#include "forms/pages.h"

namespace kestrane {
namespace {

QLabel* ValueLabel(Mirror& mirror, Label& label) {
    QLabel* value = mirror.Make(label);
    ReserveWidth(value, "255.255.255");
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setFocusPolicy(Qt::NoFocus);
    return value;
}

}  // namespace

QWidget* BuildFirmwarePage(Mirror& mirror, FirmwareTab& tab) {
    auto* page = new PinnedPage;
    QVBoxLayout* outer = page->content();
    FrameView* frame = mirror.Make(tab.fraFirmwareUpdate);
    QGridLayout* grid = GridIn(frame);
    grid->setHorizontalSpacing(3 * kGap);
    grid->setVerticalSpacing(kGap);
    grid->addWidget(mirror.Make(tab.lblTypeText), 0, 0);
    grid->addWidget(ValueLabel(mirror, tab.lblType), 0, 1, 1, 3);
    grid->addWidget(mirror.Make(tab.lblSerialNoText), 1, 0);
    grid->addWidget(ValueLabel(mirror, tab.lblSerialNo), 1, 1, 1, 3);
    grid->addWidget(mirror.Make(tab.lblFittedColumn), 2, 1);
    grid->addWidget(mirror.Make(tab.lblLatestColumn), 2, 2);
    grid->addWidget(mirror.Make(tab.lblRelayText), 3, 0);
    grid->addWidget(ValueLabel(mirror, tab.lblRelayVersion), 3, 1);
    grid->addWidget(ValueLabel(mirror, tab.lblRelayLatest), 3, 2);
    grid->addWidget(mirror.Make(tab.cmdRelayBootload), 3, 3);
    grid->addWidget(mirror.Make(tab.cmdRelayExit), 3, 4);
    grid->addWidget(mirror.Make(tab.lblDisplayText), 4, 0);
    grid->addWidget(ValueLabel(mirror, tab.lblDisplayVersion), 4, 1);
    grid->addWidget(ValueLabel(mirror, tab.lblDisplayLatest), 4, 2);
    grid->addWidget(mirror.Make(tab.cmdDisplayBootload), 4, 3);
    grid->addWidget(mirror.Make(tab.cmdDisplayExit), 4, 4);
    grid->addWidget(mirror.Make(tab.Label8), 5, 0, 1, 4);
    grid->addWidget(mirror.Make(tab.cmdFirmware), 5, 4);
    outer->addWidget(frame, 0, Qt::AlignLeft);
    outer->addStretch(1);
    page->Pin(ButtonRow(mirror, {&tab.cmdGetUnitFirmware}));
    return page;
}

}  // namespace kestrane
