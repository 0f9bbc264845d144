// SPDX-License-Identifier: MIT
#include "analysis/clip_listing.h"

namespace tallyframe {

namespace {

std::size_t position_of_media(const analysis_walk& walk, const file_record& file)
{
    const auto [entry, is_new] = walk.media_file_positions.try_emplace(&file, walk.result.media_files.size());
    if (is_new) {
        for (const auto* copied : {&file.path, &file.frame_size, &file.samplerate, &file.reel_name})
            walk.texts.spend(*copied);
        walk.result.media_files.push_back(file);
    }
    return entry->second;
}

/// "Interview 3 on V2", as losses name a clip.
std::string name_on_track(const track_context& track, const clip_item& clip)
{
    return clip.name.value_or("a clip") + " on " + track.label;
}

loss_kind reason_not_to_list(const clip_item& clip)
{
    if (clip.file_id)
        return clip.positions.duration == 0 ? loss_kind::clips_without_length
                                            : loss_kind::clips_without_media;
    return clip.element.child("sequence") ? loss_kind::nested_sequences : loss_kind::clips_without_media;
}

} // namespace

const file_record* listed_file_of(const analysis_walk& walk, const track_context& track,
                                  const clip_item& clip)
{
    const file_record* file =
        clip.file_id && clip.positions.duration != 0 ? walk.files.find(*clip.file_id) : nullptr;
    if (file == nullptr)
        walk.result.losses.add(reason_not_to_list(clip), 1, name_on_track(track, clip));
    return file;
}

clip_record clip_record_of(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                           const file_record& file, const source_frames& source)
{
    for (const auto* shared : {&track.bin, &file.reel_name, &file.roll_name, &file.path, &file.samplerate})
        walk.texts.spend(*shared);
    clip_record record;
    record.place = position_of(walk, track, clip.positions.start, clip.positions.end);
    record.bin = track.bin;
    record.name = clip.name;
    record.src_start_frame = source.first;
    record.src_end_frame = source.last;
    if (source.first && source.last)
        record.src_length = *source.last - *source.first + 1;
    record.fcp_rate = file.fcp_rate;
    record.displayformat = file.displayformat;
    record.notes = clip.notes;
    record.reel_name = file.reel_name;
    record.path = file.path;
    record.media_file = position_of_media(walk, file);
    if (file.src_duration)
        record.media_frames = source.media_frames;
    record.enabled = clip.enabled;
    return record;
}

generator_record generated_clip_record_of(const analysis_walk& walk, const track_context& track,
                                          const clip_item& clip, std::string_view type)
{
    generator_record record;
    record.place = position_of(walk, track, clip.positions.start, clip.positions.end);
    record.name = clip.name;
    record.type = type;
    record.enabled = clip.enabled;
    return record;
}

void drop_overlapped_clips(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                           std::vector<clip_record>& records)
{
    if (!walk.result.is_sequence || clip.element.previous_element().has_name("transitionitem"))
        return;
    const std::int64_t seq_start_frame = clip.positions.start + walk.sequence_start_frame;
    while (!records.empty() && records.back().place.track == track.label
           && seq_start_frame <= records.back().place.seq_end_frame) {
        walk.out.write(
            "\"sanity check for clips progressing in a track, progressing_track_clips = false\"\n");
        walk.result.losses.add(loss_kind::overlapped_clips, 1,
                               records.back().name.value_or("a clip") + " on " + track.label);
        records.pop_back();
    }
}

} // namespace tallyframe
