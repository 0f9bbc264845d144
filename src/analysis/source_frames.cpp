// SPDX-License-Identifier: MIT
#include "analysis/source_frames.h"

#include "analysis/clip_effects.h"
#include "text/leading_numbers.h"

#include <cmath>
#include <cstdint>
#include <numeric>

namespace tallyframe {

namespace {

std::optional<double> if_finite(double number)
{
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

constexpr double most_frames = 0x1p53; // with any step it fits

/// The end is exclusive. Nothing without a frame.
std::optional<used_frames> frames_between(double begin, double end)
{
    if (!(std::abs(begin) < most_frames && std::abs(end) < most_frames && begin < end))
        return std::nullopt;
    return used_frames{static_cast<std::int64_t>(begin), static_cast<std::int64_t>(end) - 1};
}

double media_frames(const source_frames& source, std::int64_t frames)
{
    return static_cast<double>(frames) / source.clip_rate * source.media_rate;
}

} // namespace

source_frames source_frames_of(const analysis_walk& walk, const clip_item& clip, const file_record& file)
{
    const clip_positions& positions = clip.positions;
    const std::optional<std::int64_t> media_duration =
        file.src_duration ? file.src_duration : positions.duration;

    source_frames source;
    // A clip as long as its media is taken to run at 100%, whatever its time remap says: editing systems
    // write speeds there that are not in force.
    if (media_duration != positions.duration) {
        if (const xml_node speed = time_remap_value(clip.effects, "speed"))
            source.speed = std::abs(leading_number(walk.additions.text_of(speed)));
    }
    const xml_node reverse = time_remap_value(clip.effects, "reverse");
    source.is_reversed = reverse && walk.additions.text_of(reverse) != "FALSE";

    const std::optional<frame_rate> seq_fcp_rate = walk.result.seq_fcp_rate;
    if (seq_fcp_rate && file.fcp_rate
        && seq_fcp_rate->frames_per_second != file.fcp_rate->frames_per_second) {
        source.clip_rate = seq_fcp_rate->frames_per_second;
        source.media_rate = file.fcp_rate->frames_per_second;
    }
    const double offset = media_frames(source, positions.start_offset);
    const double in = rounded((media_frames(source, positions.in) + offset) * source.speed / 100);
    const double out = rounded((media_frames(source, positions.out) + offset) * source.speed / 100);

    source.subclip_start = offset * source.speed / 100;
    source.origin = file.timecode_frame;
    if (source.is_reversed) {
        // One frame more than the same clip forwards: editors compare against older lists.
        const auto duration = static_cast<double>(media_duration.value_or(positions.out));
        source.origin += duration;
        source.last = if_finite(source.origin - in + 1);
        source.media_frames = frames_between(duration - out, duration - in);
        source.first = if_finite(source.origin - out + 1);
    } else {
        source.first = if_finite(source.origin + in);
        source.last = if_finite(source.origin + out - 1);
        source.media_frames = frames_between(in, out);
    }
    return source;
}

std::optional<double> source_frame_at(const source_frames& source, std::int64_t point)
{
    const double frames = rounded(media_frames(source, point) + source.subclip_start);
    // A reversed clip begins with its last frame, as it is counted there.
    return if_finite(source.is_reversed ? source.origin - frames + 1 : source.origin + frames);
}

std::optional<rational> image_time_of(const source_frames& source, const file_record& file)
{
    if (!source.first || !file.fcp_rate)
        return std::nullopt;
    const auto nominal = nominal_rate(file.fcp_rate->frames_per_second);
    if (!nominal)
        return std::nullopt;
    // NTSC rates are 1000/1001 of a whole rate.
    const std::int64_t numerator_step = file.fcp_rate->is_floating ? 1001 : 1;
    const std::int64_t denominator = *nominal * (file.fcp_rate->is_floating ? 1000 : 1);

    const double frames = rounded(*source.first - file.timecode_frame);
    if (!(std::abs(frames) < most_frames))
        return std::nullopt;
    const std::int64_t numerator = static_cast<std::int64_t>(frames) * numerator_step;
    const std::int64_t divisor = std::gcd(numerator, denominator);
    return rational{numerator / divisor, denominator / divisor};
}

} // namespace tallyframe
