// SPDX-License-Identifier: MIT
#pragma once

#include "run/account.h"
#include "run/progress.h"

#include <cstddef>
#include <set>
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

/// What cleaning has taken from a text.
struct dropped_characters {
    static constexpr std::size_t most_lines = account::most_examples;

    std::size_t count = 0; ///< one that is not UTF-8 counts once, with all bytes that it declares
    std::size_t line_count = 0; ///< lines that lost any
    std::set<std::size_t> first_lines; ///< numbers of the first of them, counted from 1

    /// Notes what a line lost, which is told once for each.
    void add(std::size_t line, std::size_t characters);
};

/// Whether `character`, which is not empty, is the UTF-8 form of one character that XML allows, DEL excepted.
bool is_clean_character(std::string_view character);

/// Removes, in place, every character from the damaged lines that is not clean, with all bytes that its first
/// one declares. Line breaks stay. Adds what was removed to `dropped`.
void clean_lines(std::string& text, const damaged_lines& damaged, dropped_characters& dropped,
                 progress& display);

/// The same for every line.
void clean_all_lines(std::string& text, dropped_characters& dropped, progress& display);

} // namespace tallyframe
