// SPDX-License-Identifier: MIT
#include "analysis/video_clip.h"

#include "analysis/clip_item.h"
#include "analysis/clip_listing.h"
#include "analysis/clip_markers.h"
#include "analysis/filters_and_motion.h"
#include "analysis/generators.h"
#include "analysis/source_frames.h"

namespace tallyframe {

namespace {

void add_clip_record(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                     const file_record& file, const source_frames& source)
{
    clip_record record = clip_record_of(walk, track, clip, file, source);
    record.isImage = !file.src_duration;
    record.type = file.type;
    record.frame_size = file.frame_size;
    record.video_format = file.video_format;
    record.roll_name = file.roll_name;
    record.image_time = image_time_of(source, file);

    auto& records = walk.result.video_clip_data_array;
    drop_overlapped_clips(walk, track, clip, records);
    records.push_back(std::move(record));
}

} // namespace

void analyze_video_clip(analysis_walk& walk, const track_context& track, xml_node element,
                        std::size_t item_number)
{
    const clip_item clip = read_clip_item(walk, track, element, item_number);
    double speed = 100;
    std::optional<marked_media> media;
    if (const file_record* file = listed_file_of(walk, track, clip)) {
        const source_frames source = source_frames_of(walk, clip, *file);
        walk.src_start_frame = source.first;
        media = marked_media_of(source, *file);
        speed = source.is_reversed ? -source.speed : source.speed;

        if (file->path == slug_path || file->path == bars_and_tone_path)
            walk.result.generatoritem_array.push_back(
                generated_clip_record_of(walk, track, clip, *file->path));
        else if (file->path == graphic_path)
            walk.result.generatoritem_array.push_back(graphic_record_of(walk, track, clip));
        else
            add_clip_record(walk, track, clip, *file, source);
    }
    add_filters(walk, track, clip, walk.result.video_clip_filter_array);
    add_motion(walk, track, clip, speed, walk.result.video_clip_motion_array);
    add_clip_markers(walk, track, clip, speed, media, walk.result.video_clip_marker_array);
}

} // namespace tallyframe
