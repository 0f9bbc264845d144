// SPDX-License-Identifier: MIT
#include "analysis/clip_markers.h"

#include "analysis/frame_numbers.h"
#include "media/markers.h"

#include <functional>
#include <unordered_set>
#include <utility>

namespace tallyframe {

namespace {

struct marker_hash_of_all_fields {
    std::size_t operator()(const clip_marker_record* marker) const
    {
        std::size_t hash = 0;
        const auto add = [&hash](const auto&... fields) {
            ((hash = hash * 1099511628211U + std::hash<std::decay_t<decltype(fields)>>{}(fields)), ...);
        };
        add(marker->name, marker->type, marker->comment, marker->in_point, marker->in_frame,
            marker->out_point, marker->out_frame, marker->duration, marker->color, marker->place.track,
            marker->place.track_name, marker->clip_name, marker->enabled, marker->src_in_frame,
            marker->src_out_frame);
        return hash;
    }
};

struct equal_markers {
    bool operator()(const clip_marker_record* a, const clip_marker_record* b) const { return *a == *b; }
};

/// Counted from the place in the sequence, as older lists have it.
void set_comparable_source_frames(clip_marker_record& record, std::optional<double> src_start_frame,
                                  std::int64_t scaled_in)
{
    if (!src_start_frame)
        return;
    record.src_in_frame = *src_start_frame + static_cast<double>(record.in_frame - scaled_in);
    record.src_out_frame = *record.src_in_frame + static_cast<double>(record.duration);
}

/// Where the marker lies in the media. Markers keep to the media whatever the clip's speed.
void set_exact_source_frames(clip_marker_record& record, const std::optional<marked_media>& media)
{
    if (!media)
        return;
    record.src_in_frame = source_frame_at(media->shown, record.in_point);
    record.src_out_frame = source_frame_at(media->shown, record.in_point + record.duration);
    record.source_clock = media->clock;
}

} // namespace

std::optional<marked_media> marked_media_of(const source_frames& shown, const file_record& file)
{
    if (!file.src_duration)
        return std::nullopt;
    const auto rate = file.fcp_rate ? std::optional(file.fcp_rate->frames_per_second) : std::nullopt;
    return marked_media{shown, {rate, file.displayformat}};
}

void add_clip_markers(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                      double speed, const std::optional<marked_media>& media,
                      std::vector<clip_marker_record>& records)
{
    const std::int64_t scaled_in = rounded_frames(static_cast<double>(clip.positions.in) * speed / 100);
    const std::int64_t scaled_out = rounded_frames(static_cast<double>(clip.positions.out) * speed / 100);
    for (const xml_node element : clip.markers) {
        marker_record marker = marker_hash(element, walk.sequence_start_frame, false, walk.result.figures);
        // The same margin on both sides, so that a marker on the last two frames in use is left out.
        constexpr std::int64_t margin = 2;
        if (marker.in_point < scaled_in - margin || marker.out_point > scaled_out - margin)
            continue;
        walk.texts.spend(track.name);
        walk.texts.spend(clip.name);
        marker.in_frame = clip.positions.start + (marker.in_frame - scaled_in);
        marker.out_frame = marker.in_frame + marker.duration;
        clip_marker_record record{
            std::move(marker), {track.label, track.name}, clip.name, clip.enabled, {}, {}, {}};
        if (walk.result.figures == figure_style::exact)
            set_exact_source_frames(record, media);
        else
            set_comparable_source_frames(record, walk.src_start_frame, scaled_in);
        records.push_back(std::move(record));
    }
}

void remove_duplicates(std::vector<clip_marker_record>& records)
{
    std::unordered_set<const clip_marker_record*, marker_hash_of_all_fields, equal_markers> seen;
    seen.reserve(records.size());
    // Each record is moved to its final place before it is remembered there.
    std::size_t kept = 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (seen.contains(&records[i]))
            continue;
        if (kept != i)
            records[kept] = std::move(records[i]);
        seen.insert(&records[kept]);
        ++kept;
    }
    records.resize(kept);
}

} // namespace tallyframe
