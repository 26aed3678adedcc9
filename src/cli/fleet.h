#pragma once

// Which of many units is begun when: so many at a time, a trial of the first few, an end after too
// many failures or by the operator. It knows numbers alone; units count from 0.

#include <cstddef>
#include <functional>
#include <optional>

namespace kestrane {

struct FleetPlan {
    std::size_t parallel = 16;
    std::size_t first = 0;  // go on after these only if all went well; 0: no trial
    std::optional<std::size_t> most_failures;  // nothing: any number
};

class Fleet {
  public:
    Fleet(std::size_t count, const FleetPlan& plan, std::function<void(std::size_t unit)> begin);

    // Begins the first ones; the others follow as units end.
    void Start() { BeginMore(); }
    void Ended(int status);
    // As Ended, of a unit that was cut off before anything came of it: it counts as not begun.
    void CutOff();
    // Begins no further unit.
    void Stop() { stopped_ = true; }

    bool Over() const { return running_ == 0 && !MayBegin(); }
    std::size_t Running() const { return running_; }
    std::size_t Done() const { return ended_ - failures_; }
    std::size_t Failed() const { return failures_; }
    // Units from this number on have not begun.
    std::size_t Begun() const { return begun_; }
    std::size_t NotBegun() const { return count_ - begun_ + cut_off_; }

    // The worst of the units, those never begun included.
    int ExitStatus() const;

  private:
    bool MayBegin() const;
    void BeginMore();

    std::size_t count_;
    FleetPlan plan_;
    std::function<void(std::size_t)> begin_;
    std::size_t begun_ = 0;
    std::size_t running_ = 0;
    std::size_t ended_ = 0;
    std::size_t failures_ = 0;
    std::size_t cut_off_ = 0;
    bool stopped_ = false;
    int worst_ = 0;
};

}  // namespace kestrane
