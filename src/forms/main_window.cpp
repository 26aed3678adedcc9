#include "forms/main_window.h"

#include <QTabBar>
#include <QTimer>

#include "forms/layout.h"
#include "forms/pages.h"
#include "forms/progress.h"

namespace kestrane {
namespace {

constexpr int kInvisibleStorage = 8;
constexpr int kAfterPaint = 30;  // milliseconds

QWidget* BuildPage(Mirror& mirror, MainForm& form, int tab) {
    switch (tab) {
        case 0:
            return BuildNetworkPage(mirror, form.network);
        case 1:
            return BuildPrivilegesPage(mirror, form.privileges);
        case 2:
            return BuildSecurityPage(mirror, form.security);
        case 3:
            return BuildNamesPage(mirror, form.names);
        case 4:
            return BuildTriggersPage(mirror, form.triggers);
        case 5:
            return BuildOneWirePage(mirror, form.one_wire);
        case 6:
            return BuildChangeoverPage(mirror, form.changeover);
        case 7:
            return BuildFirmwarePage(mirror, form.firmware);
        default:
            return new QWidget;
    }
}

}  // namespace

MainWindow::MainWindow(MainForm& form, Hand& hand, WhyDisabledFunction why_disabled)
    : FormWindow(form, hand, std::move(why_disabled), nullptr), form_(form) {
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(kBetweenFrames, kBetweenFrames, kBetweenFrames, kGap);
    outer->setSpacing(kBetweenFrames);
    auto* panels = Row();
    panels->setSpacing(kBetweenFrames);
    panels->addWidget(ConnectionPanel());
    panels->addWidget(RelayPanel());
    panels->addWidget(ProgressPanel(), 1);
    outer->addLayout(panels);
    outer->addWidget(MakeTabs(), 1);
    outer->addLayout(StatusRow());
    diagnostics_ = DiagnosticsPanel();
    outer->addWidget(diagnostics_);
    tail_ = mirror_.TakeMade();
    Chain();
    mirror_.OnRefreshed([this] { ShowProgress(); });
    FormChanged();
    ShowProgress();
}

// Connect and Disconnect are drawn in here, but don't hang on the frame.
FrameView* MainWindow::ConnectionPanel() {
    FrameView* frame = mirror_.Make(form_.fraIPAddress);
    QGridLayout* grid = GridIn(frame);
    AddField(mirror_, grid, 0, 0, form_.lblCurrentIPAddress, form_.txtCurrentIPAddress, 18);
    AddField(mirror_, grid, 0, 2, form_.lblCurrentPort, form_.txtCurrentPort, 6);
    AddField(mirror_, grid, 0, 4, form_.lblTimeout, form_.txtTimeout, 4);
    auto* buttons = Row();
    ButtonView* connect = mirror_.Make(form_.cmdConnect);
    connect->ReserveFor({QStringLiteral("Connected Port A")});
    ButtonView* disconnect = mirror_.Make(form_.cmdDisconnect);
    disconnect->ReserveFor({QStringLiteral("Timeout Disconnected")});
    buttons->addWidget(connect, 1);
    buttons->addWidget(disconnect, 1);
    grid->addLayout(buttons, 1, 0, 1, 6);
    return frame;
}

FrameView* MainWindow::RelayPanel() {
    FrameView* frame = mirror_.Make(form_.fraRelayID);
    QGridLayout* grid = GridIn(frame);
    int place = 0;
    for (OptionButton& option : form_.OptButID) {
        grid->addWidget(mirror_.Make(option), place / 3, place % 3);
        ++place;
    }
    return frame;
}

FrameView* MainWindow::ProgressPanel() {
    FrameView* frame = mirror_.Make(form_.fraMemoryBlock);
    QGridLayout* grid = GridIn(frame);
    QLabel* text = KeepReadable(mirror_.Make(form_.lblMemoryBlock));
    ReserveWidth(text, "Reading 1-Wire Live Addresses 16 of 16");
    progress_ = KeepPlace(new QProgressBar);
    progress_->setTextVisible(false);
    progress_->setMaximumHeight(fontMetrics().height());
    grid->addWidget(text, 0, 0);
    grid->addWidget(progress_, 1, 0);
    return frame;
}

QTabWidget* MainWindow::MakeTabs() {
    tabs_ = new QTabWidget;
    tabs_->setUsesScrollButtons(false);
    for (const TabState& tab : form_.SSTab1.Tabs()) {
        auto* place = new QWidget;
        (new QVBoxLayout(place))->setContentsMargins(0, 0, 0, 0);
        tabs_->addTab(place, QString::fromStdString(tab.caption));
    }
    mirror_.Bind(form_.SSTab1, *tabs_, [this](int tab) { NeedPage(tab); });
    return tabs_;
}

QLayout* MainWindow::StatusRow() {
    auto* row = Row();
    row->addWidget(mirror_.Make(form_.lblNotLoggedIn), 1);
    row->addWidget(KeepReadable(mirror_.Make(form_.lblVersion)));
    row->addSpacing(kGap);
    row->addWidget(mirror_.Make(form_.cmdHelp));
    return row;
}

QWidget* MainWindow::DiagnosticsPanel() {
    auto* panel = new QWidget;
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kBetweenFrames);
    FrameView* sent = mirror_.Make(form_.fraCommandSent);
    QGridLayout* grid = GridIn(sent);
    grid->addWidget(KeepReadable(mirror_.MakeLong(form_.Label2)), 0, 0, 1, 2);
    grid->addWidget(KeepReadable(mirror_.Make(form_.Label4)), 1, 0);
    TextBoxView* delay = mirror_.Make(form_.txtSleepDelay, 5);
    delay->setAccessibleName(QStringLiteral("Wait after a live write, milliseconds"));
    grid->addWidget(delay, 1, 1);
    grid->setColumnStretch(0, 1);
    FrameView* response = mirror_.Make(form_.fraResponse);
    QGridLayout* replies = GridIn(response);
    replies->addWidget(KeepReadable(mirror_.MakeLong(form_.Label1)), 0, 0);
    replies->addWidget(KeepReadable(mirror_.MakeLong(form_.Label3)), 0, 1);
    row->addWidget(sent, 1);
    row->addWidget(response, 1);
    return panel;
}

// The keyboard goes from the panels through the tab bar and the pages to what stands below,
// whenever a page was made.
void MainWindow::NeedPage(int tab) {
    const auto place = static_cast<std::size_t>(tab);
    if (std::exchange(made_[place], true)) return;
    if (head_.empty()) {
        head_ = mirror_.TakeMade();
        head_.push_back(tabs_->tabBar());
    }
    tabs_->widget(tab)->layout()->addWidget(BuildPage(mirror_, form_, tab));
    pages_[place] = mirror_.TakeMade();
    Chain();
}

void MainWindow::Chain() {
    if (tail_.empty()) return;
    std::vector<QWidget*> order = head_;
    for (const auto& page : pages_) order.insert(order.end(), page.begin(), page.end());
    order.insert(order.end(), tail_.begin(), tail_.end());
    ChainFocus(order);
}

void MainWindow::MakeAllPages() {
    for (int tab = 0; tab < kInvisibleStorage; ++tab) NeedPage(tab);
}

// The other pages are made after the first paint, one each time that Qt has nothing else to do.
void MainWindow::paintEvent(QPaintEvent* event) {
    FormWindow::paintEvent(event);
    if (std::exchange(painted_, true)) return;
    QTimer::singleShot(kAfterPaint, this, [this] { PreparePages(); });
}

void MainWindow::PreparePages() {
    for (int tab = 0; tab < kInvisibleStorage; ++tab) {
        if (made_[static_cast<std::size_t>(tab)]) continue;
        NeedPage(tab);
        QTimer::singleShot(0, this, [this] { PreparePages(); });
        return;
    }
}

void MainWindow::ShowProgress() {
    const auto progress = ParseProgress(form_.lblMemoryBlock.Caption());
    if (progress) {
        progress_->setRange(0, progress->total);
        progress_->setValue(progress->done);
    }
    progress_->setVisible(progress.has_value());
}

// The panel takes its room from the tabs: the window keeps its size.
void MainWindow::FormChanged() {
    FormWindow::FormChanged();
    if (diagnostics_) diagnostics_->setVisible(form_.Height() >= MainForm::kTallFrom);
}

}  // namespace kestrane
