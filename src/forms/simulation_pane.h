#pragma once

// The program of the editor on a simulated unit: the outlets and inputs over time, played, paused
// or stepped, with events from outside by buttons. It needs no connection and sends nothing; what
// it shows is the demo unit's behaviour.

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <optional>

#include "macro/macro_memory.h"
#include "simulation/simulation.h"

namespace kestrane {

// The state of a simulated unit from a moment on.
struct SimulatedMoment {
    simulation::Milliseconds from{0};
    std::uint32_t tracks = 0;  // bits 0 to 13 outlets, then as TrackName numbers them
    int alarm = 0;             // 0 silent, 1 beep, 2 flash, 3 both

    bool SameAs(const SimulatedMoment& other) const {
        return tracks == other.tracks && alarm == other.alarm;
    }
};

// The rows of the drawing and what each held over the last stretch of time.
class SimulationView : public QWidget {
  public:
    static constexpr int kTracks = 14 + 2 + 4 + 1 + 1;  // outlets, inlets, GPIs, switch, alarm
    static constexpr std::size_t kMostMoments = 20'000;

    explicit SimulationView(QWidget* parent = nullptr);

    void Clear(bool two_inlets);
    void Add(const SimulatedMoment& moment);
    // The right end of the drawing, and how much time it shows.
    void SetTime(simulation::Milliseconds now, simulation::Milliseconds span);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString NameOf(int track) const;
    int RowTop(int track) const;
    void PaintTrack(QPainter& painter, int track, const QRect& area) const;

    std::deque<SimulatedMoment> moments_;
    simulation::Milliseconds now_{0};
    simulation::Milliseconds span_{30'000};
    bool two_inlets_ = true;
};

class SimulationPane : public QWidget {
  public:
    struct Source {
        std::function<MacroMemory()> program;
        std::function<simulation::UnitType()> type;
        // The line that runs, nothing when none does.
        std::function<void(std::optional<std::uint8_t>)> on_line;
    };

    SimulationPane(Source source, QWidget* owner);

    // From address 10 with the program as it stands in the editor, all outlets off.
    void Restart();
    void Step();
    void SetPlaying(bool playing);
    bool playing() const { return timer_.isActive(); }
    // Lets time pass as if it had been played.
    void Pass(simulation::Milliseconds time);
    const simulation::Simulation& unit() const { return *simulation_; }

  protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // A loop without a wait takes effect every millisecond: a tick does no more than this.
    static constexpr int kMostStepsATick = 4000;

    QLayout* Controls();
    QLayout* Inputs();
    void Tick();
    void Apply(const simulation::Input& input);
    void Note();
    void Show();
    int Speed() const { return speed_; }

    Source source_;
    MacroMemory program_;
    simulation::UnitType type_ = simulation::UnitType::kCms;
    std::optional<simulation::Simulation> simulation_;
    SimulationView* view_;
    QLabel* time_;
    QLabel* line_;
    QPushButton* play_;
    std::vector<QPushButton*> inputs_;
    QTimer timer_;
    int speed_ = 1;
};

}  // namespace kestrane
