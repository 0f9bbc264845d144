// SPDX-License-Identifier: MIT
#include "document/character_repair.h"

#include "text/utf8.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace tallyframe {

namespace {

bool is_control(char character)
{
    constexpr char del = 0x7F;
    const bool is_blank = character == '\t' || character == '\n' || character == '\r';
    return (static_cast<unsigned char>(character) < 0x20 && !is_blank) || character == del;
}

constexpr std::size_t characters_between_looks = 100'000; ///< at whether the run is still wanted

/// Moves the clean characters of `line` to `out`, which lies before it or at its begin; the end of them.
/// Counts the others.
char* move_clean_characters(std::string_view line, char* out, std::size_t& dropped, progress& display)
{
    for (std::size_t looked_at = 0; !line.empty(); ++looked_at) {
        if (looked_at % characters_between_looks == 0)
            display.leave_if_cancelled();
        const std::string_view character = line.substr(0, declared_length(line));
        line.remove_prefix(character.size());
        if (is_clean_character(character))
            out = std::copy(character.begin(), character.end(), out);
        else
            ++dropped;
    }
    return out;
}

template <class IsDamaged>
void clean_lines_where(std::string& text, const IsDamaged& is_damaged, dropped_characters& dropped,
                       progress& display)
{
    const std::size_t end_of_lines = text.find_last_not_of('\n') + 1;
    const std::string_view lines = std::string_view(text).substr(0, end_of_lines);
    char* out = text.data();
    for (std::size_t begin = 0, index = 0; begin < lines.size(); ++index) {
        const std::size_t end = std::min(lines.find('\n', begin), lines.size());
        const std::string_view line = lines.substr(begin, end - begin);
        if (is_damaged(index, end == lines.size())) {
            std::size_t dropped_here = 0;
            out = move_clean_characters(line, out, dropped_here, display);
            if (dropped_here != 0)
                dropped.add(index + 1, dropped_here);
        } else {
            std::memmove(out, line.data(), line.size());
            out += line.size();
        }
        if (end < lines.size())
            *out++ = '\n';
        begin = end + 1;
    }
    text.resize(static_cast<std::size_t>(out - text.data()));
}

} // namespace

void damaged_lines::add(int line)
{
    if (line <= 0) {
        has_last_line_ = true;
        return;
    }
    const auto index = static_cast<std::size_t>(line) - 1;
    if (index >= by_index_.size())
        by_index_.resize(index + 1);
    by_index_[index] = true;
}

bool damaged_lines::contains(std::size_t index, bool is_last_line) const
{
    return (is_last_line && has_last_line_) || (index < by_index_.size() && by_index_[index]);
}

void dropped_characters::add(std::size_t line, std::size_t characters)
{
    count += characters;
    ++line_count;
    first_lines.insert(line);
    if (first_lines.size() > most_lines)
        first_lines.erase(std::prev(first_lines.end()));
}

bool is_clean_character(std::string_view character)
{
    const auto [bytes, code_point] = first_character(character);
    return code_point && bytes.size() == character.size() && !is_control(bytes.front());
}

void clean_lines(std::string& text, const damaged_lines& damaged, dropped_characters& dropped,
                 progress& display)
{
    clean_lines_where(
        text, [&](std::size_t index, bool is_last) { return damaged.contains(index, is_last); }, dropped,
        display);
}

void clean_all_lines(std::string& text, dropped_characters& dropped, progress& display)
{
    clean_lines_where(
        text, [](std::size_t, bool) { return true; }, dropped, display);
}

} // namespace tallyframe
