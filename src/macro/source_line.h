#pragma once

// A line of source text while the assembler reads it. Positions count characters from 0.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "macro/source_words.h"

namespace kestrane {

// One line of the source as bytes, its remark cut off, with a place to read from.
class SourceLine {
  public:
    // Nothing where it is not UTF-8, or the unit lacks a character; `at` then says where.
    static std::optional<std::string> Statement(std::string_view utf8, std::size_t& at,
                                                std::string& why);

    explicit SourceLine(std::string text) : text_(std::move(text)) { SkipBlanks(); }

    bool AtEnd() const { return at_ == text_.size(); }
    std::size_t at() const { return at_; }
    char Next() const { return AtEnd() ? '\0' : text_[at_]; }
    std::string_view Rest() const { return std::string_view(text_).substr(at_); }
    // The word that begins here, up to a blank or one of `ends`.
    std::string_view Word(std::string_view ends = {}) const {
        const std::string_view rest = Rest();
        std::size_t end = 0;
        while (end < rest.size() && !IsBlank(rest[end]) &&
               ends.find(rest[end]) == std::string_view::npos) {
            ++end;
        }
        return rest.substr(0, end);
    }
    // Moves on over so many characters and the blanks after them.
    void Skip(std::size_t characters) {
        at_ += characters;
        SkipBlanks();
    }
    void Take(std::size_t characters) { at_ += characters; }

  private:
    void SkipBlanks() {
        while (at_ < text_.size() && IsBlank(text_[at_])) ++at_;
    }

    std::string text_;
    std::size_t at_ = 0;
};

}  // namespace kestrane
