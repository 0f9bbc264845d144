// SPDX-License-Identifier: MIT
#include "document/text_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace tallyframe {

namespace {

constexpr std::int64_t largest_integer = std::numeric_limits<std::int64_t>::max() / 4;
constexpr std::string_view blanks = " \t\n\v\f\r";

std::string_view without_leading_blanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text;
}

/// Takes a sign off the front of `text`; whether it was a minus.
bool take_sign(std::string_view& text)
{
    if (text.empty() || (text.front() != '-' && text.front() != '+'))
        return false;
    const bool is_minus = text.front() == '-';
    text.remove_prefix(1);
    return is_minus;
}

bool is_digit(char character)
{
    return character >= '0' && character <= '9';
}

/// Whether a number that no double can hold is too large (and not too close to 0).
bool is_too_large(std::string_view number)
{
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos)
        return number.substr(exponent + 1, 1) != "-";
    const std::string_view whole_part = number.substr(0, number.find('.'));
    return whole_part.find_first_not_of('0') != std::string_view::npos;
}

char upper_cased(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// Whether a byte of UTF-8 goes on with the character of the byte before it.
bool is_inside_character(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

std::int64_t leading_integer(std::string_view text)
{
    text = without_leading_blanks(text);
    const bool is_negative = take_sign(text);
    std::int64_t value = 0;
    for (std::size_t i = 0; i < text.size() && is_digit(text[i]); ++i) {
        const std::int64_t digit = text[i] - '0';
        value = value > (largest_integer - digit) / 10 ? largest_integer : value * 10 + digit;
    }
    return is_negative ? -value : value;
}

double leading_number(std::string_view text)
{
    text = without_leading_blanks(text);
    const bool is_negative = take_sign(text);
    if (text.empty() || !(is_digit(text.front()) || text.front() == '.')) // from_chars would read "inf"
        return 0;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        const std::string_view number(text.data(), static_cast<std::size_t>(end - text.data()));
        value = is_too_large(number) ? std::numeric_limits<double>::max() : 0;
    }
    return is_negative ? -value : value;
}

std::int64_t truncated_number(std::string_view text)
{
    constexpr auto limit = static_cast<double>(largest_integer);
    const double value = std::trunc(leading_number(text));
    if (value >= limit)
        return largest_integer;
    return value <= -limit ? -largest_integer : static_cast<std::int64_t>(value);
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view trimmed_away(" \t\n\v\f\r\0", 7);
    const std::size_t begin = text.find_first_not_of(trimmed_away);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(trimmed_away) + 1 - begin);
}

std::string upper_cased(std::string_view text)
{
    std::string upper(text);
    for (char& letter : upper)
        letter = upper_cased(letter);
    return upper;
}

std::string with_quotes_escaped(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (std::size_t quote = text.find('"'); quote != std::string_view::npos; quote = text.find('"')) {
        escaped += text.substr(0, quote);
        escaped += "&quot;";
        text.remove_prefix(quote + 1);
    }
    escaped += text;
    return escaped;
}

std::string shortened(std::string_view text, std::size_t bytes)
{
    if (text.size() <= bytes)
        return std::string(text);
    std::size_t end = bytes;
    while (end > 0 && is_inside_character(text[end]))
        --end;
    return std::string(text.substr(0, end)) + "…";
}

std::string in_quotes(std::string_view name)
{
    constexpr std::size_t longest = 100;
    return '"' + shortened(name, longest) + '"';
}

} // namespace tallyframe
