#pragma once

// Stories as text: what a hand does stands at the margin, what then goes out and changes on the
// screen stands indented below it. A test plays the hand's lines and compares the whole text, so
// that each frame, caption, box and changed control of a story is checked. The words stand in
// README.md here.

#include <string>
#include <vector>

namespace kestrane {

// The text with what really happens below each line. A line that can't be played says why.
std::string PlayTranscript(const std::string& text);

// The files *.story of a folder below tests/, without their ending.
std::vector<std::string> TranscriptsIn(const std::string& folder);

// Plays tests/<folder>/<name>.story and expects it to come out as it stands. With the environment
// variable KESTRANE_RECORD set, the file is written anew instead, for a reader of its changes.
void ExpectTranscript(const std::string& folder, const std::string& name);

}  // namespace kestrane
