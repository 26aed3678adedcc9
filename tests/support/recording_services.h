#pragma once

// The small services of the virtual platform: they answer what the test has put in and keep what
// they were asked.

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "platform/file_store.h"
#include "platform/services.h"
#include "support/virtual_time.h"

namespace kestrane {

class RecordingBoxes : public MessageBoxes {
  public:
    struct Box {
        std::string title;
        std::string text;
        std::vector<BoxButton> buttons;
    };

    // Runs `while_open`, then takes the next queued answer, or else the first button. Throws
    // std::logic_error if the box has no such button.
    BoxButton Show(const std::string& title, const std::string& text,
                   const std::vector<BoxButton>& buttons) override;

    void Answer(BoxButton button) { answers_.push_back(button); }
    // What happens while a box is open: a test that wants events then pumps here.
    void set_while_open(std::function<void()> action) { while_open_ = std::move(action); }

    const std::vector<Box>& shown() const { return shown_; }

  private:
    std::vector<Box> shown_;
    std::deque<BoxButton> answers_;
    std::function<void()> while_open_;
};

class ScriptedFiles : public FileDialogs {
  public:
    // The next queued path; without one the dialog is cancelled.
    std::string Ask(const Request& request) override;

    void Choose(std::string path) { paths_.push_back(std::move(path)); }
    const std::vector<Request>& asked() const { return asked_; }

  private:
    std::deque<std::string> paths_;
    std::vector<Request> asked_;
};

class CountingSound : public Sound {
  public:
    void Beep() override { ++beeps_; }
    int beeps() const { return beeps_; }

  private:
    int beeps_ = 0;
};

// Files that live as long as the test. Secrets are kept apart by `owner_only`.
class MemoryDisk : public FileStore {
  public:
    Content Read(const std::string& path) override;
    std::optional<std::string> Replace(const std::string& path, std::string_view content,
                                       Readers readers) override;
    std::optional<std::string> WhyNotWritable(const std::string& path) override;
    std::optional<std::string> MakeFolder(const std::string& path) override;

    std::map<std::string, std::string> files;
    std::set<std::string> owner_only;
    // Reasons for which these paths can't be read or written.
    std::map<std::string, std::string> faults;
};

// The same draws in each run; each Seed starts another stream.
class SeededRandom : public Random {
  public:
    void Seed() override;
    double Draw() override;

    // The next draws, before those of the stream.
    void Queue(double draw) { queued_.push_back(draw); }
    int seedings() const { return seedings_; }

  private:
    int seedings_ = 0;
    std::deque<double> queued_;
    std::mt19937_64 engine_;
};

class VirtualClock : public Clock {
  public:
    explicit VirtualClock(const VirtualTime& time) : time_(time) {}

    std::uint32_t TickCount() const override;

    // Makes the present tick count this one, to let it wrap.
    void SetTickCount(std::uint32_t ticks);

  private:
    const VirtualTime& time_;
    std::uint32_t offset_ = 1000;
};

}  // namespace kestrane
