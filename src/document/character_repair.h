// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// The lines of a text that a parser complains about. Lines end at "\n" (a "\r" before it belongs to the
/// line); the empty ones at the end of the text are not counted.
class damaged_lines {
public:
    /// `line` counts from 1. A parser that cannot tell the line says 0: that is the last one.
    void add(int line);

    bool empty() const { return !has_last_line_ && by_index_.empty(); }
    bool contains(std::size_t index, bool is_last_line) const;

private:
    std::vector<bool> by_index_; // a document can bring a million errors, but not in more lines than it has
    bool has_last_line_ = false;
};

/// How many bytes at the front of `text`, which is not empty, count as one character: as many as its first
/// byte declares in UTF-8, as far as the text goes.
std::size_t declared_length(std::string_view text);

/// Whether `character` is the UTF-8 form of one character that XML allows, DEL excepted.
bool is_clean_character(std::string_view character);

/// Removes, in place, every character from the damaged lines that is not clean, with all bytes that its first
/// one declares. Line breaks stay.
void clean_lines(std::string& text, const damaged_lines& damaged);

/// The same for every line.
void clean_all_lines(std::string& text);

} // namespace tallyframe
