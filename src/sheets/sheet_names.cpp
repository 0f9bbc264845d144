// SPDX-License-Identifier: MIT
#include "sheets/sheet_names.h"

#include "text/shortened.h"
#include "workbook/sheet_name.h"

namespace tallyframe {

namespace {

constexpr std::size_t longest_name = 31; ///< UTF-16 units

bool is_letter_or_digit(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
        || (character >= '0' && character <= '9');
}

/// Advances a letter or digit, from the last of its kind to the first. Whether that carries.
bool advance_with_carry(char& character)
{
    switch (character) {
    case 'z':
        character = 'a';
        return true;
    case 'Z':
        character = 'A';
        return true;
    case '9':
        character = '0';
        return true;
    default:
        ++character;
        return false;
    }
}

void append_legal(std::string& name, char character)
{
    const auto byte = static_cast<unsigned char>(character);
    const bool is_control = byte < 0x20 || byte == 0x7F;
    if (character == '\\' || character == '/')
        name += '|';
    else if (character == '[')
        name += '(';
    else if (character == ']')
        name += ')';
    else if (character != ':' && character != '?' && character != '*' && !is_control)
        name += character;
}

/// The name as far as Excel takes it: 31 UTF-16 units, no half of a surrogate pair, no apostrophe at its end.
std::string cut_to_length(std::string name)
{
    name.resize(front_in_utf16_units(name, longest_name).size());
    name.resize(name.find_last_not_of('\'') + 1);
    return name;
}

} // namespace

void sheet_names::add(std::string_view name)
{
    keys_.insert(xls::sheet_name_key(name));
}

bool sheet_names::contains(std::string_view name) const
{
    return keys_.contains(xls::sheet_name_key(name));
}

std::string successor(std::string name)
{
    std::size_t leftmost = 0;
    for (std::size_t i = name.size(); i-- > 0;) {
        if (!is_letter_or_digit(name[i]))
            continue;
        if (!advance_with_carry(name[i]))
            return name;
        leftmost = i;
    }
    const char carried = name.at(leftmost);
    name.insert(leftmost, 1, carried == '0' ? '1' : carried);
    return name;
}

std::string reel_sheet_name(std::size_t number, std::string_view reel, const sheet_names& used)
{
    std::string name = "#" + std::to_string(number) + " ";
    for (const char character : reel)
        append_legal(name, character);
    name = cut_to_length(std::move(name));
    // A successor that has grown is cut again: its number is another one by then, so it stays unlike the
    // rest.
    while (used.contains(name))
        name = cut_to_length(successor(std::move(name)));
    return name;
}

} // namespace tallyframe
