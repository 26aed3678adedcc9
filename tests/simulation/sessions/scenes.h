#pragma once

// Short runs of steps that belong together, as what an operator does belongs together: a tab read,
// edited and written, a box in the way of a click, a line lost in the midst and made anew. Random
// steps alone hardly ever come upon them.

#include <random>
#include <vector>

#include "simulation/sessions/story.h"

namespace kestrane::sessions {

// The operator of one story, who works on one tab most of the time.
class Scenes {
  public:
    explicit Scenes(std::mt19937_64& random);

    // Connects to the first unit and reads its settings and the tab.
    void Begin(std::vector<Step>& steps);
    void Append(std::vector<Step>& steps);
    // Connects, asks and disconnects, again and again, on a line that is slow to answer.
    void AppendHaste(std::vector<Step>& steps);

  private:
    unsigned Draw(unsigned count) { return static_cast<unsigned>(random_() % count); }
    int Pause(unsigned longest) { return static_cast<int>(1 + Draw(longest)); }
    Step Press(int after, const char* button) const;
    Step Break(int after);
    void Read(std::vector<Step>& steps);
    void Write(std::vector<Step>& steps);
    void Reconnect(std::vector<Step>& steps);
    void BoxInTheWay(std::vector<Step>& steps);
    void LineLost(std::vector<Step>& steps);
    void ErrorsInARow(std::vector<Step>& steps);
    void ReplyInPieces(std::vector<Step>& steps);
    void EditorAgain(std::vector<Step>& steps);

    std::mt19937_64& random_;
    unsigned tab_;
};

}  // namespace kestrane::sessions
