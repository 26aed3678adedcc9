#include "forms/fading.h"
#include "forms/layout.h"
#include "forms/pages.h"

namespace kestrane {
namespace {

constexpr int kRows = 5;
constexpr int kFirstLive = 3;
constexpr int kLiveRows = 4;
constexpr int kValueColumns = 4;

// A value box with its scroll bar, which runs upwards as the value grows.
QHBoxLayout* Value(Mirror& mirror, TextBox& box, ScrollBar& bar, const QString& name) {
    QHBoxLayout* value = Row();
    value->setSpacing(2);
    TextBoxView* view = mirror.Make(box, kValueColumns);
    view->setAccessibleName(name);
    value->addWidget(view, 0, Qt::AlignVCenter);
    QScrollBar* scroll = mirror.Make(bar);
    scroll->setAccessibleName(name + QStringLiteral(", 255 less the value"));
    scroll->setFixedHeight(3 * scroll->fontMetrics().height());
    value->addWidget(scroll);
    value->addStretch(1);
    return value;
}

// Live and startup values stand in the same columns in every group.
void SetColumns(QGridLayout* grid, const QWidget& widget) {
    const int width = widget.fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 5 * kGap;
    grid->setColumnMinimumWidth(0, width);
    grid->setColumnMinimumWidth(1, width);
    grid->setColumnStretch(2, 1);
}

FrameView* Group(Mirror& mirror, ChangeoverTab& tab, int row) {
    Label* const measured[] = {&tab.lblOffTimeMain, &tab.lblOffTimeBackup, &tab.lblPhase,
                               &tab.lblChangeBack, &tab.lblAlarmDefault};
    FrameView* frame = mirror.Make(tab.RowGroup(row));
    QGridLayout* grid = GridIn(frame);
    grid->setContentsMargins(kMargin, 3, kMargin, 3);
    const QString name = QString::fromStdString(tab.RowGroup(row).Caption());
    if (row < kLiveRows) {
        const int index = row + kFirstLive;
        grid->addLayout(Value(mirror, tab.txtCurrent(index), tab.scrCurrent(index),
                              name + QStringLiteral(", live")),
                        0, 0);
    } else {
        // An empty column would lose its distance to the next one, a spacer would too.
        grid->addWidget(new QWidget, 0, 0);
    }
    grid->addLayout(
        Value(mirror, tab.txtStartup(row), tab.scrStartup(row), name + QStringLiteral(", startup")),
        0, 1);
    QLabel* text = mirror.Make(*measured[row]);
    ReserveWidth(text, "Need two supplies to measure ......");
    grid->addWidget(text, 0, 2);
    SetColumns(grid, *frame);
    return frame;
}

FrameView* Options(Mirror& mirror, ChangeoverTab& tab) {
    FrameView* frame = mirror.Make(tab.fraChangeoverOptions);
    QGridLayout* grid = GridIn(frame);
    grid->setVerticalSpacing(4);
    auto* heads = new QGridLayout;
    heads->setContentsMargins(kMargin, 0, kMargin, 0);
    heads->setHorizontalSpacing(kGap);
    heads->addWidget(mirror.Make(tab.lblLiveColumn), 0, 0);
    heads->addWidget(mirror.Make(tab.lblStartupColumn), 0, 1);
    SetColumns(heads, *frame);
    grid->addLayout(heads, 0, 0);
    for (int row = 0; row < kRows; ++row) grid->addWidget(Group(mirror, tab, row), row + 1, 0);
    grid->addLayout(ButtonRow(mirror, {&tab.cmdSaveCurrent(0), &tab.cmdSaveStartup(0)}), kRows + 1,
                    0);
    return frame;
}

FrameView* Inlets(Mirror& mirror, Frame& frame, ControlArray<OptionButton>& options) {
    FrameView* view = mirror.Make(frame);
    QGridLayout* grid = GridIn(view);
    int row = 0;
    for (OptionButton& option : options) grid->addWidget(mirror.Make(option), row++, 0);
    return view;
}

FrameView* DefaultInlet(Mirror& mirror, ChangeoverTab& tab) {
    FrameView* frame = mirror.Make(tab.fraDefaultInlet);
    QGridLayout* grid = GridIn(frame);
    grid->addWidget(Inlets(mirror, tab.fraDefaultInletLive, tab.optInLive), 0, 0);
    grid->addWidget(Inlets(mirror, tab.fraDefaultInletStart, tab.optInE2P), 0, 1);
    grid->addWidget(Caption(QStringLiteral("Live inlet when read:")), 1, 0);
    grid->addWidget(mirror.Make(tab.lblDefaultIn), 1, 1);
    grid->addWidget(Caption(QStringLiteral("Lockout:")), 2, 0);
    grid->addWidget(mirror.Make(tab.lblLockout), 2, 1);
    grid->addWidget(mirror.Make(tab.cmdSaveCurrent(1)), 3, 0);
    grid->addWidget(mirror.Make(tab.cmdSaveStartup(1)), 3, 1);
    return frame;
}

}  // namespace

QWidget* BuildChangeoverPage(Mirror& mirror, ChangeoverTab& tab, Fading& fading) {
    auto* page = new PinnedPage;
    QVBoxLayout* outer = page->content();
    QHBoxLayout* frames = RowOfFrames();
    frames->addWidget(Options(mirror, tab), 0, Qt::AlignTop);
    frames->addWidget(DefaultInlet(mirror, tab), 0, Qt::AlignTop);
    frames->addStretch(1);
    outer->addLayout(frames, 1);
    QHBoxLayout* actions = ButtonRow(mirror, {&tab.cmdReadCMSOptions});
    QLabel* last_answer = Caption({});
    actions->addWidget(last_answer);
    fading.SayIn(last_answer);
    page->Pin(actions);
    for (Label* label : {&tab.lblOffTimeMain, &tab.lblOffTimeBackup, &tab.lblPhase,
                         &tab.lblChangeBack, &tab.lblLockout}) {
        fading.Add(static_cast<QLabel*>(mirror.WidgetOf(*label)));
    }
    return page;
}

}  // namespace kestrane
