#include "forms/layout.h"
#include "forms/pages.h"

namespace kestrane {
namespace {

constexpr int kBits = 8;
constexpr int kPorts = 3;

// One board's half: a row for each bit, a column for each port, the bytes below.
QGridLayout* Board(Mirror& mirror, PrivilegesTab& tab, int board) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(2 * kGap);
    grid->setVerticalSpacing(kGap);
    QLabel* title = mirror.Make(tab.lblPriv(board / 100));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    grid->addWidget(title, 0, 0);
    for (int port = 1; port <= kPorts; ++port) {
        grid->addWidget(mirror.Make(tab.lblPriv(board + 10 + port)), 0, port, Qt::AlignCenter);
        grid->setColumnMinimumWidth(port, 4 * kGap);
    }
    for (int bit = 0; bit < kBits; ++bit) {
        const int index = board + bit;
        Label& caption = index == 107 ? tab.lblPrivRelay(index) : tab.lblPriv(index);
        grid->addWidget(mirror.Make(caption), bit + 1, 0);
        for (int port = 1; port <= kPorts; ++port) {
            CheckBox& box = tab.chkPriv(board + 10 * port + bit);
            QCheckBox* check = KeepPlace(mirror.Make(box));
            check->setAccessibleName(QString::fromStdString(caption.Caption() + ", port " +
                                                            static_cast<char>('A' + port - 1)));
            grid->addWidget(check, bit + 1, port, Qt::AlignCenter);
        }
    }
    grid->addWidget(Caption(QStringLiteral("Byte to write:")), kBits + 1, 0);
    grid->addWidget(Caption(QStringLiteral("Byte last read:")), kBits + 2, 0);
    for (int port = 1; port <= kPorts; ++port) {
        for (const int row : {1, 2}) {
            const int index = board + 10 * port + (row == 1 ? 0 : 1000);
            QLabel* byte = mirror.Make(tab.lblPrivByte(index));
            byte->setFont(FixedPitch());
            ReserveWidth(byte, "0000");
            byte->setAlignment(Qt::AlignCenter);
            grid->addWidget(byte, kBits + row, port, Qt::AlignCenter);
        }
    }
    return grid;
}

}  // namespace

QWidget* BuildPrivilegesPage(Mirror& mirror, PrivilegesTab& tab) {
    auto* page = new PinnedPage;
    QVBoxLayout* outer = page->content();
    FrameView* frame = mirror.Make(tab.fraTcpControlSettings);
    QGridLayout* grid = GridIn(frame);
    grid->setContentsMargins(2 * kMargin, kMargin, 2 * kMargin, kMargin);
    grid->addLayout(Board(mirror, tab, 100), 0, 0);
    grid->setColumnMinimumWidth(1, 6 * kGap);
    grid->addLayout(Board(mirror, tab, 200), 0, 2);
    outer->addWidget(frame, 0, Qt::AlignLeft);
    outer->addStretch(1);
    page->Pin(ButtonRow(mirror, {&tab.cmdReadTCPPortPriv, &tab.cmdWriteTCPPortPriv}));
    return page;
}

}  // namespace kestrane
