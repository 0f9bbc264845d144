// SPDX-License-Identifier: MIT
#include "document/character_repair.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tallyframe {

namespace {

struct byte_range {
    unsigned char first;
    unsigned char last;

    bool contains(char character) const
    {
        const auto byte = static_cast<unsigned char>(character);
        return byte >= first && byte <= last;
    }
};

/// A kind of UTF-8 sequence: the range of its first and of its second byte; all further ones are plain
/// continuation bytes.
struct utf8_sequence {
    std::size_t length;
    byte_range first;
    byte_range second = continuation;

    static constexpr byte_range continuation = {0x80, 0xBF};
};

constexpr std::array<utf8_sequence, 8> longer_sequences = {{
    {2, {0xC2, 0xDF}},
    {3, {0xE0, 0xE0}, {0xA0, 0xBF}},
    {3, {0xE1, 0xEC}},
    {3, {0xED, 0xED}, {0x80, 0x9F}}, // no surrogates
    {3, {0xEE, 0xEF}},
    {4, {0xF0, 0xF0}, {0x90, 0xBF}},
    {4, {0xF1, 0xF3}},
    {4, {0xF4, 0xF4}, {0x80, 0x8F}}, // up to U+10FFFF
}};

bool is_clean_ascii(char character)
{
    constexpr byte_range printable = {0x20, 0x7E};
    return printable.contains(character) || character == '\t' || character == '\n' || character == '\r';
}

/// Moves the clean characters of `line` to `out`, which lies before it or at its begin; the end of them.
char* move_clean_characters(std::string_view line, char* out)
{
    while (!line.empty()) {
        const std::string_view character = line.substr(0, declared_length(line));
        line.remove_prefix(character.size());
        if (is_clean_character(character))
            out = std::copy(character.begin(), character.end(), out);
    }
    return out;
}

template <class IsDamaged>
void clean_lines_where(std::string& text, const IsDamaged& is_damaged)
{
    const std::size_t end_of_lines = text.find_last_not_of('\n') + 1;
    const std::string_view lines = std::string_view(text).substr(0, end_of_lines);
    char* out = text.data();
    for (std::size_t begin = 0, index = 0; begin < lines.size(); ++index) {
        const std::size_t end = std::min(lines.find('\n', begin), lines.size());
        const std::string_view line = lines.substr(begin, end - begin);
        if (is_damaged(index, end == lines.size())) {
            out = move_clean_characters(line, out);
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

std::size_t declared_length(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    std::size_t length = 1;
    if (lead >= 0xC0 && lead <= 0xF7)
        length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    return std::min(length, text.size());
}

bool is_clean_character(std::string_view character)
{
    if (character.size() == 1)
        return is_clean_ascii(character.front());
    return std::any_of(longer_sequences.begin(), longer_sequences.end(), [&](const utf8_sequence& sequence) {
        return sequence.length == character.size() && sequence.first.contains(character[0])
            && sequence.second.contains(character[1])
            && std::all_of(character.begin() + 2, character.end(),
                           [](char byte) { return utf8_sequence::continuation.contains(byte); });
    });
}

void clean_lines(std::string& text, const damaged_lines& damaged)
{
    clean_lines_where(text,
                      [&](std::size_t index, bool is_last) { return damaged.contains(index, is_last); });
}

void clean_all_lines(std::string& text)
{
    clean_lines_where(text, [](std::size_t, bool) { return true; });
}

} // namespace tallyframe
