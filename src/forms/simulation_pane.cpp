#include "forms/simulation_pane.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "forms/latin1.h"
#include "forms/layout.h"
#include "forms/look/look.h"
#include "macro/instruction_set.h"
#include "macro/timeline.h"
#include "text/text.h"

namespace kestrane {
namespace {

using simulation::Input;
using simulation::Milliseconds;
using simulation::Simulation;

constexpr int kTickMilliseconds = 40;
constexpr Milliseconds kShown{30'000};  // at normal speed

constexpr int kFirstInlet = 14;
constexpr int kSecondInlet = 15;
constexpr int kFirstGpi = 16;
constexpr int kSwitch = 20;
constexpr int kAlarm = 21;

constexpr int kRow = 15;
constexpr int kBetweenGroups = 6;
constexpr int kNameWidth = 62;
constexpr int kAxis = 22;

SimulatedMoment MomentOf(const Simulation& simulation) {
    const simulation::LiveState& live = simulation.Runner().Live();
    SimulatedMoment moment{simulation.Now(), live.outlets_on, live.alarm};
    const auto set = [&moment](int track, bool on) {
        if (on) moment.tracks |= std::uint32_t{1} << track;
    };
    set(kFirstInlet, (live.changeover.InletBits() & 0x4000) != 0);
    set(kSecondInlet, (live.changeover.InletBits() & 0x8000) != 0);
    for (std::size_t i = 0; i < simulation::kGpis; ++i) {
        set(kFirstGpi + static_cast<int>(i), live.gpi_high[i]);
    }
    set(kSwitch, live.switch_on);
    set(kAlarm, live.alarm != 0);
    return moment;
}

QString SecondsShown(Milliseconds time) {
    const qint64 seconds = time.count() / 1000;
    const QString clock = QStringLiteral("%1:%2:%3")
                              .arg(seconds / 3600)
                              .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
                              .arg(seconds % 60, 2, 10, QLatin1Char('0'));
    return clock + QStringLiteral(".%1").arg(time.count() % 1000, 3, 10, QLatin1Char('0'));
}

// Down shows in the colour of a selection: a mere shade of grey is lost on a dark ground.
class ToggleButton : public QPushButton {
  public:
    explicit ToggleButton(const QString& text) : QPushButton(text) {
        setCheckable(true);
        setAutoDefault(false);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QStyleOptionButton option;
        initStyleOption(&option);
        if (isChecked()) {
            option.palette.setColor(QPalette::Button, palette().color(QPalette::Highlight));
            option.palette.setColor(QPalette::ButtonText,
                                    palette().color(QPalette::HighlightedText));
        }
        QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
    }
};

// A step of the time axis that leaves room for its numbers.
qint64 AxisStep(qint64 span) {
    for (const qint64 step : {1000, 2000, 5000, 10'000, 30'000, 60'000, 300'000, 600'000}) {
        if (span / step <= 8) return step;
    }
    return 1'800'000;
}

}  // namespace

SimulationView::SimulationView(QWidget* parent) : QWidget(parent) {
    setMinimumSize(420, RowTop(kTracks) + kAxis);
    setAccessibleName(QStringLiteral("Outlets and inputs over time"));
}

void SimulationView::Clear(bool two_inlets) {
    moments_.clear();
    two_inlets_ = two_inlets;
    update();
}

void SimulationView::Add(const SimulatedMoment& moment) {
    if (!moments_.empty() && moments_.back().SameAs(moment)) return;
    if (!moments_.empty() && moments_.back().from == moment.from) moments_.pop_back();
    moments_.push_back(moment);
    if (moments_.size() > kMostMoments) moments_.pop_front();
}

void SimulationView::SetTime(Milliseconds now, Milliseconds span) {
    now_ = now;
    span_ = span;
    update();
}

QString SimulationView::NameOf(int track) const {
    if (track < kFirstInlet) return QStringLiteral("Outlet %1").arg(track + 1);
    if (track == kFirstInlet)
        return two_inlets_ ? QStringLiteral("Inlet 1") : QStringLiteral("Inlet");
    if (track == kSecondInlet) return two_inlets_ ? QStringLiteral("Inlet 2") : QString();
    if (track < kSwitch) return QStringLiteral("GPI %1").arg(track - kFirstGpi + 1);
    return track == kSwitch ? QStringLiteral("Switch") : QStringLiteral("Alarm");
}

int SimulationView::RowTop(int track) const {
    const int groups = (track >= kFirstInlet ? 1 : 0) + (track >= kFirstGpi ? 1 : 0);
    return kSmallGap + track * kRow + groups * kBetweenGroups;
}

void SimulationView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    const QRect area = rect().adjusted(kNameWidth, 0, -kAxis, -kAxis);
    const QColor text = palette().color(QPalette::Text);
    QColor grid = text;
    grid.setAlphaF(0.15f);
    const qint64 span = span_.count();
    const qint64 begin = std::max<qint64>(0, now_.count() - span);
    const qint64 step = AxisStep(span);
    for (qint64 at = (begin + step - 1) / step * step; at <= begin + span; at += step) {
        const int x = area.left() + static_cast<int>((at - begin) * area.width() / span);
        painter.setPen(grid);
        painter.drawLine(x, area.top(), x, area.bottom());
        painter.setPen(text);
        painter.drawText(QRect(x - 40, area.bottom() + 2, 80, kAxis - 2), Qt::AlignCenter,
                         step >= 60'000 ? QStringLiteral("%1 min").arg(at / 60'000)
                                        : QStringLiteral("%1 s").arg(at / 1000));
    }
    for (int track = 0; track < kTracks; ++track) PaintTrack(painter, track, area);
    const int now = area.left() + static_cast<int>((now_.count() - begin) * area.width() / span);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawLine(now, area.top(), now, area.bottom());
}

// On is a bar with an edge, off a line at the foot of the row.
void SimulationView::PaintTrack(QPainter& painter, int track, const QRect& area) const {
    const QString name = NameOf(track);
    if (name.isEmpty()) return;
    const int top = RowTop(track);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRect(kSmallGap, top, kNameWidth - kSmallGap, kRow),
                     Qt::AlignVCenter | Qt::AlignLeft, name);
    const QColor on = track == kAlarm        ? FaultColour(palette())
                      : track >= kFirstInlet ? ChangedColour(palette())
                                             : GoodColour(palette());
    QColor ground = on;
    ground.setAlphaF(0.45f);
    QColor off = palette().color(QPalette::Text);
    off.setAlphaF(0.5f);
    const qint64 span = span_.count();
    const qint64 begin = std::max<qint64>(0, now_.count() - span);
    const auto x_of = [&](qint64 at) {
        const qint64 inside = std::clamp(at, begin, begin + span) - begin;
        return area.left() + static_cast<int>(inside * area.width() / span);
    };
    const auto is_on = [&](std::size_t i) { return (moments_[i].tracks >> track & 1) != 0; };
    for (std::size_t i = 0; i < moments_.size();) {
        const std::size_t first = i;
        while (i < moments_.size() && is_on(i) == is_on(first)) ++i;
        const qint64 to = i < moments_.size() ? moments_[i].from.count() : now_.count();
        if (to < begin) continue;
        const int left = x_of(moments_[first].from.count());
        const int right = x_of(to);
        if (!is_on(first)) {
            painter.setPen(off);
            painter.drawLine(left, top + kRow - 3, right, top + kRow - 3);
            continue;
        }
        painter.setPen(QPen(on, 1));
        painter.setBrush(ground);
        painter.drawRect(QRect(left, top + 3, std::max(1, right - left), kRow - 6));
    }
}

SimulationPane::SimulationPane(Source source, QWidget* owner)
    : QWidget(owner, Qt::Dialog), source_(std::move(source)) {
    setObjectName(QStringLiteral("simulationPane"));
    setWindowTitle(QStringLiteral("Simulation: the demo unit's behaviour, nothing is sent"));
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    outer->setSpacing(kGap);
    view_ = new SimulationView;
    outer->addLayout(Controls());
    outer->addWidget(view_, 1);
    outer->addLayout(Inputs());
    timer_.setInterval(kTickMilliseconds);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { Tick(); });
    Restart();
}

QLayout* SimulationPane::Controls() {
    auto* row = Row();
    const auto add = [this, row](QPushButton* made, auto handler) {
        made->setAutoDefault(false);
        row->addWidget(made);
        QObject::connect(made, &QPushButton::clicked, this, handler);
        return made;
    };
    const auto button = [&add](const char* text, auto handler) {
        return add(new QPushButton(QLatin1String(text)), handler);
    };
    play_ = button("Play", [this] { SetPlaying(!playing()); });
    play_->setMinimumWidth(play_->fontMetrics().horizontalAdvance(QStringLiteral("Pause")) + 30);
    button("Step", [this] { Step(); });
    button("Restart", [this] { Restart(); });
    row->addSpacing(kGap);
    auto* speeds = new QButtonGroup(this);
    for (const int speed : {1, 10, 100}) {
        auto* choice = add(new ToggleButton(QStringLiteral("%1x").arg(speed)), [this, speed] {
            speed_ = speed;
            Show();
        });
        choice->setChecked(speed == 1);
        speeds->addButton(choice);
    }
    row->addSpacing(kGap);
    time_ = new QLabel;
    time_->setFont(FixedPitch());
    line_ = new QLabel;
    line_->setMinimumWidth(260);
    row->addWidget(time_);
    row->addWidget(line_, 1);
    return row;
}

// A button that is down stands for an input that is on, high or there.
QLayout* SimulationPane::Inputs() {
    auto* row = Row();
    row->addWidget(Caption(QStringLiteral("From outside:")));
    const auto add = [this, row](const QString& text, const Input& input) {
        auto* made = new ToggleButton(text);
        made->setObjectName(text);
        made->setToolTip(QStringLiteral("Pressed: on, high or present"));
        row->addWidget(made);
        inputs_.push_back(made);
        QObject::connect(made, &QPushButton::clicked, this, [this, input](bool down) {
            Input now = input;
            now.up = down;
            Apply(now);
        });
    };
    add(QStringLiteral("Switch on"), {Input::Kind::kSwitch, true});
    for (int gpi = 1; gpi <= 4; ++gpi) {
        add(QStringLiteral("GPI %1 high").arg(gpi), {Input::Kind::kGpi, true, gpi});
    }
    add(QStringLiteral("Main supply"), {Input::Kind::kSupply, true});
    row->addStretch(1);
    return row;
}

void SimulationPane::Restart() {
    program_ = source_.program();
    type_ = source_.type();
    simulation_.emplace(ImageOf(program_), simulation::Start{.type = type_});
    for (QPushButton* input : inputs_) input->setChecked(true);
    view_->Clear(type_ != simulation::UnitType::kSingle);
    Note();
    Show();
}

void SimulationPane::SetPlaying(bool playing) {
    playing ? timer_.start() : timer_.stop();
    play_->setText(playing ? QStringLiteral("Pause") : QStringLiteral("Play"));
}

void SimulationPane::Step() {
    SetPlaying(false);
    if (simulation_->NextDue()) simulation_->Step();
    Note();
    Show();
}

void SimulationPane::Tick() { Pass(Milliseconds(kTickMilliseconds * speed_)); }

void SimulationPane::Pass(Milliseconds time) {
    const Milliseconds until = simulation_->Now() + time;
    for (int steps = 0; steps < kMostStepsATick; ++steps) {
        const auto due = simulation_->NextDue();
        if (!due || *due > until) {
            simulation_->PassTo(until);
            break;
        }
        simulation_->Step();
        Note();
    }
    Show();
}

void SimulationPane::Apply(const Input& input) {
    simulation_->Apply(input);
    Note();
    Show();
}

void SimulationPane::Note() { view_->Add(MomentOf(*simulation_)); }

void SimulationPane::Show() {
    const simulation::MacroRunner& runner = simulation_->Runner();
    view_->SetTime(simulation_->Now(), kShown * speed_);
    time_->setText(SecondsShown(simulation_->Now()));
    const std::uint8_t at = runner.Pointer();
    const std::string text =
        CmdDecode(program_.Opcode(at), program_.SecondByte(at), UnitTypeOf(type_));
    const char* state = runner.Running()        ? ""
                        : runner.InterruptSet() ? " (waits for an event)"
                                                : " (ended)";
    line_->setText(ToQt(HexByte(at) + "  " + text + state));
    if (source_.on_line) source_.on_line(at);
}

void SimulationPane::hideEvent(QHideEvent* event) {
    SetPlaying(false);
    if (source_.on_line) source_.on_line({});
    QWidget::hideEvent(event);
}

void SimulationPane::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace kestrane
