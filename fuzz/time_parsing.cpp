// SPDX-License-Identifier: MIT
// Any text as a time, and any count of frames as a text and back.
#include "fuzz/promise.h"
#include "timecode/clock_and_seconds.h"
#include "timecode/feet_and_frames.h"
#include "timecode/frame_rates.h"
#include "timecode/to_timecode.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

namespace tallyframe::fuzz {

namespace {

bool is_finite(std::optional<double> value)
{
    return !value || std::isfinite(*value);
}

double any_rate(FuzzedDataProvider& choices)
{
    if (choices.ConsumeBool())
        return choices.ConsumeFloatingPoint<double>();
    return choices.PickValueInArray(frame_rates).fcp_rate.frames_per_second;
}

void parse(const std::string& text, const std::string& frame_duration, double rate)
{
    const auto duration = [&] { return std::optional<std::string>(frame_duration); };
    for (const auto format : {display_format::non_drop_frame, display_format::drop_frame}) {
        promise(is_finite(to_frames(text, rate, format)), "a time text gives a finite number or nothing");
        promise(is_finite(to_frames(text, rate, format, duration)), "a rational time gives a finite number");
    }
}

/// The clock's text as its second of the day.
int second_of_day(const std::string& clock)
{
    promise(clock.size() == 8 && clock[2] == ':' && clock[5] == ':', "a clock text is HH:mm:ss");
    const auto field = [&](std::size_t at) { return (clock[at] - '0') * 10 + clock[at + 1] - '0'; };
    promise(field(0) < 24 && field(3) < 60 && field(6) < 60, "a clock text stays within the day");
    return field(0) * 3600 + field(3) * 60 + field(6);
}

void show_clock(double seconds)
{
    const std::string clock = to_clock(seconds);
    if (!std::isfinite(seconds)) {
        promise(clock.empty(), "no clock text where there is no time");
        return;
    }
    constexpr double day = 86'400;
    const double expected = std::fmod(std::fmod(std::floor(seconds), day) + day, day);
    promise(second_of_day(clock) == expected, "a clock text tells the second of the day");
}

void show_feet(double frames)
{
    const std::string text = to_feet_and_frames(frames);
    if (text.empty())
        return;
    const std::size_t plus = text.find('+');
    promise(plus != std::string::npos && plus >= 4, "feet have four digits at least");
    const std::size_t sign = text.find('-');
    const std::size_t digits = sign < plus ? sign : 0; // the sign stands behind the padding
    std::int64_t feet = 0;
    std::int64_t rest = 0;
    std::from_chars(text.data() + digits, text.data() + plus, feet);
    std::from_chars(text.data() + plus + 1, text.data() + text.size(), rest);
    promise(rest >= 0 && rest < 16, "a foot has 16 frames");
    promise(feet * 16 + rest == static_cast<std::int64_t>(frames), "feet and frames add up");
}

/// The count that the label of `frames` stands for in drop-frame counting as the standard has it: the labels
/// dropped too many, at the end of ten minutes, are those of the frames to come.
std::int64_t drop_frame_count(std::int64_t frames, std::int64_t nominal)
{
    const std::int64_t dropped = nominal / 15;
    const std::int64_t ten_minutes = nominal * 600 - dropped * 9;
    const std::int64_t position = (frames % ten_minutes + ten_minutes) % ten_minutes;
    return ten_minutes - position <= dropped ? frames + dropped : frames;
}

void bring_back(std::int64_t frames, double rate)
{
    const auto count = static_cast<double>(frames);
    const std::optional<std::int64_t> nominal = nominal_rate(rate);
    const std::string plain = to_timecode(count, rate, display_format::non_drop_frame);
    promise(plain.empty() == !nominal, "every count has a label at every real rate");
    if (nominal)
        promise(to_frames(plain, rate, display_format::non_drop_frame) == count,
                "a label without dropped numbers gives its count");

    constexpr std::array<double, 4> drop_frame_rates = {29.97, 30, 59.94, 60};
    if (std::ranges::count(drop_frame_rates, rate) != 0)
        promise(
            to_frames(to_timecode(count, rate, display_format::drop_frame), rate, display_format::drop_frame)
                == static_cast<double>(drop_frame_count(frames, *nominal)),
            "a drop-frame label gives its count");
}

void try_input(FuzzedDataProvider& choices)
{
    const double rate = any_rate(choices);
    const auto frames = choices.ConsumeFloatingPoint<double>();
    constexpr std::int64_t longest = 1'000'000'000'000;
    const auto whole_frames = choices.ConsumeIntegralInRange<std::int64_t>(-longest, longest);
    const std::string frame_duration = choices.ConsumeRandomLengthString(40);
    parse(choices.ConsumeRemainingBytesAsString(), frame_duration, rate);

    for (const auto format :
         {display_format::non_drop_frame, display_format::drop_frame, display_format::unknown})
        to_timecode(frames, rate, format);
    promise(is_finite(to_seconds(frames, rate)), "seconds are finite");
    show_clock(frames);
    show_feet(frames);
    show_feet(static_cast<double>(whole_frames));
    bring_back(whole_frames, rate);
}

} // namespace

} // namespace tallyframe::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider choices(data, size);
    tallyframe::fuzz::try_input(choices);
    return 0;
}
