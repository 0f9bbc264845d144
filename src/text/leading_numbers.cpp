// SPDX-License-Identifier: MIT
#include "text/leading_numbers.h"

#include "text/trimmed.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

namespace tallyframe {

namespace {

constexpr std::int64_t largest_integer = std::numeric_limits<std::int64_t>::max() / 4;

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

} // namespace

leading_digits leading_digits_of(std::string_view text)
{
    text = without_leading_blanks(text);
    const bool is_negative = take_sign(text);
    text = text.substr(0, text.find_first_not_of("0123456789"));
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    return {is_negative, text};
}

std::int64_t leading_integer(std::string_view text)
{
    const auto [is_negative, digits] = leading_digits_of(text);
    std::int64_t value = 0;
    for (const char character : digits) {
        const std::int64_t digit = character - '0';
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

} // namespace tallyframe
