#include "host/line_splitter.h"

#include <algorithm>
#include <utility>

namespace kestrane {

void LineSplitter::Feed(std::string_view bytes, std::deque<InputLine>& lines) {
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        Append(bytes.substr(0, end));
        if (end == std::string_view::npos) return;
        Complete(lines);
        bytes.remove_prefix(end + 1);
    }
}

void LineSplitter::Finish(std::deque<InputLine>& lines) {
    if (!line_.text.empty() || line_.too_long) Complete(lines);
}

void LineSplitter::Append(std::string_view piece) {
    // One more than allowed is kept, which may be the CR of the line's end.
    const std::size_t room = longest_ + 1 - line_.text.size();
    if (piece.size() > room) line_.too_long = true;
    line_.text += piece.substr(0, room);
}

void LineSplitter::Complete(std::deque<InputLine>& lines) {
    if (!line_.too_long && line_.text.ends_with('\r')) line_.text.pop_back();
    if (line_.text.size() > longest_) line_.too_long = true;
    line_.text.resize(std::min(line_.text.size(), longest_));
    lines.push_back(std::exchange(line_, {}));
}

}  // namespace kestrane
