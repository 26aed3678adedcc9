#include "forms/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QTabBar>
#include <QTimer>

#include "forms/latin1.h"
#include "forms/layout.h"
#include "forms/look/look.h"
#include "forms/main_menu.h"
#include "forms/pages.h"
#include "forms/progress.h"
#include "forms/qt_dialogs.h"
#include "forms/review_window.h"

namespace kestrane {
namespace {

constexpr int kInvisibleStorage = 8;
constexpr int kAfterPaint = 30;  // milliseconds

QWidget* BuildPage(Mirror& mirror, MainForm& form, int tab, Fading& fading) {
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
            return BuildChangeoverPage(mirror, form.changeover, fading);
        case 7:
            return BuildFirmwarePage(mirror, form.firmware);
        default:
            return new QWidget;
    }
}

}  // namespace

MainWindow::MainWindow(Workbench& bench, WhyDisabledFunction why_disabled)
    : FormWindow(bench.tool.main_form, bench.tool.hand, std::move(why_disabled), nullptr),
      bench_(bench),
      form_(bench.tool.main_form) {
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(kBetweenFrames, kSmallGap, kBetweenFrames, kGap);
    outer->setSpacing(kGap);
    menu_ = new QMenuBar;
    outer->setMenuBar(menu_);
    fading_ = new Fading(*this, bench.live);
    header_ = new UnitHeader(bench, [this] { mirror_.Click(form_.cmdDisconnect); });
    outer->addWidget(header_);
    auto* panels = Row();
    panels->setSpacing(kBetweenFrames);
    panels->addWidget(ConnectionPanel());
    panels->addWidget(RelayPanel());
    panels->addWidget(ProgressPanel(), 1);
    outer->addLayout(panels);
    outer->addWidget(MakeTabs(), 1);
    below_pages_ = outer->count();
    outer->addLayout(StatusRow());
    tail_ = mirror_.TakeMade();
    Chain();
    FillMenu();
    mirror_.OnTip([&bench](const Control& control) {
        return TipOf(bench.pending, bench.verification, control);
    });
    mirror_.AroundClick(
        [this](Control& control, const auto& click) { AroundClick(control, click); });
    mirror_.OnRefreshed([this] {
        ShowProgress();
        ScheduleMarks();
    });
    bench.pending.OnChanged([this] { ScheduleMarks(); });
    bench.messages.OnAdded([this](const Message&) { ScheduleMarks(); });
    bench.verification.OnChanged([this] { ScheduleMarks(); });
    FormChanged();
    ShowProgress();
    KeepLargeEnough();
    made_frame_ = true;
}

void MainWindow::MakeWhole() {
    NeedPage(tabs_->currentIndex());
    if (diagnostics_) return;
    diagnostics_ = DiagnosticsPanel();
    layout()->addWidget(diagnostics_);
    const std::vector<QWidget*> made = mirror_.TakeMade();
    tail_.insert(tail_.end(), made.begin(), made.end());
    Chain();
    FormChanged();
}

void MainWindow::KeepLargeEnough() {
    setMinimumSize(minimumSizeHint().boundedTo({kSmallestWidth, kSmallestHeight}));
}

QSize MainWindow::sizeHint() const {
    constexpr int kLines = 55;
    return FormWindow::sizeHint().expandedTo({0, kLines * fontMetrics().lineSpacing()});
}

void MainWindow::FillMenu() {
    FillMenuBar(*menu_, bench_, mirror_,
                {[this] { Review(); }, [this] { ToggleLog(); }, [this] { close(); },
                 [this](const QString& because) { return MayDiscardAll(because); }});
}

void MainWindow::ToggleLog() {
    if (!log_) {
        log_ = new LogPane(bench_);
        log_->hide();
        static_cast<QVBoxLayout*>(layout())->insertWidget(below_pages_, log_);
    }
    log_->setVisible(!log_->isVisible());
}

// Connect and Disconnect are drawn in here, but don't hang on the frame.
FrameView* MainWindow::ConnectionPanel() {
    FrameView* frame = mirror_.Make(form_.fraIPAddress);
    QGridLayout* grid = GridIn(frame);
    AddField(mirror_, grid, 0, 0, form_.lblCurrentIPAddress, form_.txtCurrentIPAddress, 18);
    used_ = new UsedAddresses(mirror_, form_, bench_.messages);
    grid->addWidget(used_, 0, 2);
    AddField(mirror_, grid, 0, 3, form_.lblCurrentPort, form_.txtCurrentPort, 6);
    AddField(mirror_, grid, 0, 5, form_.lblTimeout, form_.txtTimeout, 4);
    auto* buttons = Row();
    auto* connect = mirror_.Make<PrimaryButton>(form_.cmdConnect);
    connect->ReserveFor({QStringLiteral("Connected Port A")});
    ButtonView* disconnect = mirror_.Make(form_.cmdDisconnect);
    disconnect->ReserveFor({QStringLiteral("Timeout Disconnected")});
    buttons->addWidget(connect, 1);
    buttons->addWidget(disconnect, 1);
    grid->addLayout(buttons, 1, 0, 1, 7);
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
    ReserveWidth(text, "Reading Web Browser Passwords Complete");
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
    tabs_->setAccessibleName(QStringLiteral("Settings of the unit"));
    for (const TabState& tab : form_.SSTab1.Tabs()) {
        auto* place = new QWidget;
        (new QVBoxLayout(place))->setContentsMargins(0, 0, 0, 0);
        tabs_->addTab(place, QString::fromStdString(tab.caption));
    }
    marks_ = std::make_unique<Marks>(bench_, mirror_, *tabs_, kInvisibleStorage);
    mirror_.Bind(form_.SSTab1, *tabs_, [this](int tab) {
        if (made_frame_) NeedPage(tab);
    });
    head_ = mirror_.TakeMade();
    head_.push_back(tabs_->tabBar());
    return tabs_;
}

QLayout* MainWindow::StatusRow() {
    auto* row = Row();
    QLabel* socket = KeepReadable(mirror_.Make(form_.lblNotLoggedIn));
    ReserveWidth(socket, "Socket connection pending");
    strip_ = new MessageStrip(bench_);
    connect(strip_->changes(), &QToolButton::clicked, this, [this] { Review(); });
    row->addWidget(socket);
    row->addWidget(strip_, 1);
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
    tabs_->widget(tab)->layout()->addWidget(BuildPage(mirror_, form_, tab, *fading_));
    pages_[place] = mirror_.TakeMade();
    Chain();
    KeepLargeEnough();
}

void MainWindow::Chain() {
    std::vector<QWidget*> order = head_;
    for (const auto& page : pages_) order.insert(order.end(), page.begin(), page.end());
    order.insert(order.end(), tail_.begin(), tail_.end());
    ChainFocus(order);
}

void MainWindow::MakeAllPages() {
    for (int tab = 0; tab < kInvisibleStorage; ++tab) NeedPage(tab);
}

// The window comes up with an empty page. The first one is made after the first paint, the others
// later, one each time that Qt has nothing else to do.
void MainWindow::paintEvent(QPaintEvent* event) {
    FormWindow::paintEvent(event);
    if (std::exchange(painted_, true)) return;
    QTimer::singleShot(0, this, [this] {
        MakeWhole();
        ApplyIcon();
    });
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

// The bar is there while something runs, and a second stage of one operation never takes it back.
void MainWindow::ShowProgress() {
    const auto& operations = bench_.tool.link.journal().operations();
    const bool runs =
        !operations.empty() && operations.back().end == OperationRecord::End::kRunning;
    const auto progress = ParseProgress(form_.lblMemoryBlock.Caption());
    progress_->setVisible(runs && progress);
    if (!runs || !progress) return;
    if (progress_of_ != operations.back().number) furthest_ = 0;
    progress_of_ = operations.back().number;
    furthest_ = std::max(furthest_, 1000 * progress->done / progress->total);
    progress_->setRange(0, 1000);
    progress_->setValue(furthest_);
}

// What is sent back to its value by what the operator is about to do.
MainWindow::Loss MainWindow::WouldDiscard(const Control& control) const {
    const int all = static_cast<int>(bench_.pending.Count());
    if (&control == &form_.cmdDisconnect) return {QStringLiteral("Disconnecting"), all};
    if (&control == &form_.network.cmdResetEthernet) return {QStringLiteral("The reset"), all};
    const QString reading = QStringLiteral("Reading again");
    if (&control == &form_.network.cmdReadNetworkSettings) return {reading, all};
    const int page = form_.SSTab1.Tab();
    const bool leaving = &control == &form_.SSTab1 && page == PageOfTab("changeover");
    if (!leaving && &control != ReadButtonOf(form_, page)) return {{}, 0};
    int here = 0;
    for (const PendingChange& change : bench_.pending.List()) {
        here += PageOfTab(change.setting->tab) == page ? 1 : 0;
    }
    return {leaving ? QStringLiteral("Leaving this tab") : reading, here};
}

bool MainWindow::MayDiscard(const Loss& loss) {
    if (loss.changes == 0) return true;
    const QString what = loss.changes == 1 ? QStringLiteral("1 change")
                                           : QStringLiteral("%1 changes").arg(loss.changes);
    return AskToDiscard(
        this, form_.screen().platform().loop,
        QStringLiteral("%1 drops %2 not yet written to the unit.").arg(loss.because, what));
}

bool MainWindow::MayDiscardAll(const QString& because) {
    return MayDiscard({because, static_cast<int>(bench_.pending.Count())});
}

void MainWindow::AroundClick(Control& control, const std::function<void()>& click) {
    if (const Loss loss = WouldDiscard(control); loss.changes > 0) {
        // The widget shows the choice already, which is not made yet.
        mirror_.Changed(control);
        mirror_.Refresh();
        if (!MayDiscard(loss)) return;
    }
    const auto last = bench_.tool.link.journal().last_operation();
    const auto boxes = QApplication::topLevelWidgets().size();
    click();
    if (control.kind() != Kind::kButton || QApplication::topLevelWidgets().size() != boxes) return;
    bench_.AfterClick(static_cast<Button&>(control), last);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    mirror_.Post([this] {
        if (MayDiscardAll(QStringLiteral("Closing"))) mirror_.hand().Close(form_);
    });
}

// Enter in the address boxes connects, Down offers addresses.
void MainWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const Control* const focused = form_.Focused();
    if (enter && focused && focused->container().container_name() == "fraIPAddress") {
        mirror_.Click(form_.cmdConnect);
        return;
    }
    if (event->key() == Qt::Key_Down && focused == &form_.txtCurrentIPAddress) {
        used_->Offer();
        return;
    }
    FormWindow::keyPressEvent(event);
}

void MainWindow::Review() {
    auto* review = new ReviewWindow(
        bench_, [this](Control& control) { GoToControl(control); }, this);
    review->setAttribute(Qt::WA_DeleteOnClose);
    review->setModal(true);
    review->show();
}

void MainWindow::GoToControl(Control& control) {
    mirror_.Post([this, &control] {
        const Setting* const setting = SettingOfControl(control.name());
        const int page = setting ? PageOfTab(setting->tab) : -1;
        Hand& hand = mirror_.hand();
        if (page >= 0 && form_.SSTab1.Tab() != page) hand.Choose(form_.SSTab1, page);
        hand.GoTo(control);
        mirror_.FocusChanged();
    });
}

void MainWindow::ScheduleMarks() {
    if (std::exchange(marks_scheduled_, true)) return;
    mirror_.Post([this] { ShowMarks(); });
}

void MainWindow::ShowMarks() {
    marks_scheduled_ = false;
    marks_->Show();
    strip_->ShowCount();
    header_->Show();
    used_->Show();
    const QString name = header_->Name();
    const QString title = ToQt(form_.Caption());
    const QString wanted = name.isEmpty() ? title : name + QStringLiteral(" - ") + title;
    if (windowTitle() != wanted) setWindowTitle(wanted);
}

// The panel takes its room from the tabs: the window keeps its size.
void MainWindow::FormChanged() {
    FormWindow::FormChanged();
    if (header_) ScheduleMarks();
    if (diagnostics_) diagnostics_->setVisible(form_.Height() >= MainForm::kTallFrom);
}

}  // namespace kestrane
