// SPDX-License-Identifier: MIT
#include "timecode/to_timecode.h"

#include "text/leading_numbers.h"
#include "timecode/frame_arithmetic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tallyframe {

namespace {

constexpr double rate_without_a_rate = 29.97;
constexpr std::size_t most_fields = 4; // hours, minutes, seconds, frames

bool counts_drop_frames(double rate, display_format format)
{
    constexpr std::array<double, 4> drop_frame_rates = {29.97, 30, 59.94, 60};
    return format == display_format::drop_frame
        && std::ranges::find(drop_frame_rates, rate) != drop_frame_rates.end();
}

/// A frame's number when those that were dropped before it are counted too.
double number_with_dropped(double frames, std::int64_t nominal)
{
    const std::int64_t dropped_per_minute = nominal / 15;
    const std::int64_t frames_per_ten_minutes = nominal * 600 - dropped_per_minute * 9;
    const floored_division tens(static_cast<std::int64_t>(rounded(frames)), frames_per_ten_minutes);
    // The first minute of the ten drops none, and is as much longer than the others.
    const std::int64_t minutes =
        std::max<std::int64_t>(tens.remainder - dropped_per_minute, 0) / (nominal * 60 - dropped_per_minute);
    return static_cast<double>(tens.quotient * nominal * 600 + tens.remainder + minutes * dropped_per_minute);
}

double leading_value(std::string_view text)
{
    const auto [is_negative, digits] = leading_digits_of(text);
    double value = 0;
    for (const char digit : digits)
        value = value * 10 + (digit - '0');
    return is_negative ? -value : value;
}

/// "3003/30000s": numerator and denominator of a number of seconds.
struct rational_time {
    double numerator;
    double denominator = 1;

    explicit rational_time(std::string_view text)
    {
        std::string number(text);
        if (const std::size_t unit = number.find('s'); unit != std::string::npos)
            number.erase(unit, 1);
        numerator = leading_value(number);
        if (const std::size_t slash = number.find('/'); slash != std::string::npos)
            denominator = leading_value(std::string_view(number).substr(slash + 1));
    }
};

std::optional<double> finite(double value)
{
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> frames_of_rational_time(std::string_view text,
                                              const frame_duration_source& frame_duration)
{
    const std::optional<std::string> duration_text = frame_duration ? frame_duration() : std::nullopt;
    if (!duration_text)
        return std::nullopt;
    const rational_time time(text);
    const rational_time duration(*duration_text);
    return finite(rounded(time.numerator / duration.numerator * duration.denominator / time.denominator));
}

/// The fields between the separators, not more than one beyond those that count.
std::vector<std::string_view> fields_of(std::string_view text)
{
    std::vector<std::string_view> fields;
    while (fields.size() <= most_fields) {
        const std::size_t separator = text.find_first_of(":;.");
        fields.push_back(text.substr(0, separator));
        if (separator == std::string_view::npos)
            break;
        text.remove_prefix(separator + 1);
    }
    return fields;
}

/// "10203" stands for 01, 02, 03: the number's decimal text in pairs.
std::string even_digits(std::string_view compact)
{
    const leading_digits number = leading_digits_of(compact);
    std::string digits = number.is_negative && !number.digits.empty() ? "-" : "";
    digits += number.digits.empty() ? "0" : number.digits;
    return digits.size() % 2 == 0 ? digits : "0" + digits;
}

/// Hours, minutes, seconds and frames; what the text does not give is 0.
std::array<double, most_fields> field_values(std::string_view text)
{
    std::vector<std::string_view> fields = fields_of(text);
    std::string digits;
    if (fields.size() == 2) {
        digits = even_digits(fields.front());
        const std::string_view frames = fields.back();
        fields.clear();
        for (std::size_t pair = 0; pair < digits.size() && fields.size() < most_fields; pair += 2)
            fields.push_back(std::string_view(digits).substr(pair, 2));
        fields.push_back(frames);
    }
    fields.resize(std::min(fields.size(), most_fields));

    std::array<double, most_fields> values = {};
    std::transform(fields.rbegin(), fields.rend(), values.rbegin(), leading_value);
    return values;
}

} // namespace

std::string to_timecode(std::optional<double> frames, std::optional<double> rate, display_format format,
                        drop_frame_counting counting)
{
    if (!rate) {
        rate = rate_without_a_rate;
        format = display_format::non_drop_frame;
    }
    const std::optional<std::int64_t> nominal = nominal_rate(*rate);
    if (!frames || !nominal || !(std::fabs(*frames) < frame_count_limit))
        return {};

    const bool is_standard = counting == drop_frame_counting::standard;
    if (is_standard && counts_drop_frames(*rate, format))
        frames = number_with_dropped(*frames, *nominal);
    const std::int64_t dropped_per_minute =
        format == display_format::drop_frame && !is_standard ? *nominal / 15 : 0;
    const std::int64_t frames_per_minute = *nominal * 60 - dropped_per_minute;
    const std::int64_t frames_per_ten_minutes = *nominal * 600 - dropped_per_minute * 9;

    const double whole_frames = std::floor(*frames);
    const floored_division hours(static_cast<std::int64_t>(whole_frames), frames_per_ten_minutes * 6);
    const floored_division tens(hours.remainder, frames_per_ten_minutes);
    // The first minute of the ten is as short as the others: its last frames carry the next minute's label.
    const floored_division minutes(tens.remainder, frames_per_minute);
    const floored_division seconds(minutes.remainder, *nominal);
    const double frame = static_cast<double>(seconds.remainder) + (*frames - whole_frames);

    std::string text;
    append_padded(text, hours.quotient, 2);
    text += ':';
    append_padded(text, tens.quotient * 10 + minutes.quotient, 2);
    text += ':';
    append_padded(text, seconds.quotient, 2);
    text += format == display_format::non_drop_frame ? ':' : ';';
    append_padded(text, static_cast<std::int64_t>(rounded(frame)), 2);
    return text;
}

std::optional<double> to_frames(std::optional<std::string_view> text, double rate, display_format format,
                                const frame_duration_source& frame_duration)
{
    if (!text)
        return std::nullopt;
    if (*text == "0s" || *text == "0/0s" || *text == "0/1s")
        return 0;
    if (text->find_first_of(":;.") == std::string_view::npos)
        return frames_of_rational_time(*text, frame_duration);
    const std::optional<std::int64_t> nominal = nominal_rate(rate);
    if (!nominal)
        return std::nullopt;

    const auto n = static_cast<double>(*nominal);
    const auto [hours, minutes, seconds, frames] = field_values(*text);
    double total = frames + seconds * n + minutes * 60 * n + hours * 60 * 60 * n;
    if (counts_drop_frames(rate, format)) {
        const std::int64_t dropped_numbers = *nominal / 15;
        const auto dropped_per_minute = static_cast<double>(dropped_numbers);
        const double tens = std::floor(minutes / 10);
        total -= (hours * 6 + tens) * dropped_per_minute * 9 + (minutes - tens * 10) * dropped_per_minute;
    }
    return finite(total);
}

} // namespace tallyframe
