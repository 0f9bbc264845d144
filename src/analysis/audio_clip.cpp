// SPDX-License-Identifier: MIT
#include "analysis/audio_clip.h"

#include "analysis/clip_item.h"
#include "analysis/clip_listing.h"
#include "analysis/clip_markers.h"
#include "analysis/filters_and_motion.h"
#include "analysis/source_frames.h"

// What sets audio clips apart from video clips: other fields, no roll name, no titles, no motion, and a
// reversed clip keeps its positive speed.

namespace tallyframe {

namespace {

void add_clip_record(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                     const file_record& file, const source_frames& source)
{
    clip_record record = clip_record_of(walk, track, clip, file, source);
    record.audio_format = file.audio_format;
    record.samplerate = file.samplerate;
    record.audio_item = clip.element;

    auto& records = walk.result.audio_clip_data_array;
    drop_overlapped_clips(walk, track, clip, records);
    records.push_back(std::move(record));
}

bool is_generated(const std::optional<std::string>& path)
{
    return path == slug_path || path == bars_and_tone_path || path == graphic_path;
}

} // namespace

void analyze_audio_clip(analysis_walk& walk, const track_context& track, xml_node element,
                        std::size_t item_number)
{
    const clip_item clip = read_clip_item(walk, track, element, item_number);
    double speed = 100;
    std::optional<marked_media> media;
    if (const file_record* file = listed_file_of(walk, track, clip)) {
        const source_frames source = source_frames_of(walk, clip, *file);
        walk.src_start_frame = source.first;
        media = marked_media_of(source, *file);
        speed = source.speed;

        if (is_generated(file->path))
            walk.result.generatoritem_array.push_back(
                generated_clip_record_of(walk, track, clip, *file->path));
        else
            add_clip_record(walk, track, clip, *file, source);
    }
    add_filters(walk, track, clip, walk.result.audio_clip_filter_array);
    add_clip_markers(walk, track, clip, speed, media, walk.result.audio_clip_marker_array);
}

} // namespace tallyframe
