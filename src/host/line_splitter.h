#pragma once

// Cuts a stream of bytes into lines. The end of a line is LF or CR LF and is not part of it.

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace kestrane {

struct InputLine {
    std::string text;
    bool too_long = false;  // longer than the splitter allows; the text is its beginning
};

class LineSplitter {
  public:
    explicit LineSplitter(std::size_t longest) : longest_(longest) {}

    // Appends the lines that these bytes complete.
    void Feed(std::string_view bytes, std::deque<InputLine>& lines);

    // Appends the last line if it had no end.
    void Finish(std::deque<InputLine>& lines);

  private:
    void Append(std::string_view piece);
    void Complete(std::deque<InputLine>& lines);

    std::size_t longest_;
    InputLine line_;
};

}  // namespace kestrane
