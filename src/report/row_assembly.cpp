// SPDX-License-Identifier: MIT
#include "report/row_assembly.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>

namespace tallyframe {

namespace {

/// The records of one array that may be reported, by the label of their track, in stored order.
template <class Record>
class records_by_track {
public:
    records_by_track(const std::vector<Record>& records, bool enabled_only)
    {
        for (const Record& record : records) {
            if (!enabled_only || record.enabled == "TRUE")
                by_label_[record.place.track].push_back(&record);
        }
    }

    void append_to(std::vector<const Record*>& rows, const std::string& label) const
    {
        const auto found = by_label_.find(label);
        if (found != by_label_.end())
            rows.insert(rows.end(), found->second.begin(), found->second.end());
    }

private:
    std::unordered_map<std::string_view, std::vector<const Record*>> by_label_;
};

std::vector<std::string> ticked_labels(char letter, const std::vector<int>& ticks)
{
    std::vector<std::string> labels;
    for (std::size_t i = 0; i < ticks.size(); ++i) {
        if (ticks[i] == 1)
            labels.push_back(letter + std::to_string(i + 1));
    }
    return labels;
}

clip_record clip_row_of(const generator_record& generator)
{
    clip_record row;
    row.place = generator.place;
    row.name = generator.name;
    row.type = generator.type;
    row.enabled = generator.enabled;
    return row;
}

void append_generator_rows(report_rows& rows)
{
    rows.generator_rows.reserve(rows.generators.size());
    for (const generator_record* generator : rows.generators)
        rows.generator_rows.push_back(clip_row_of(*generator));
    for (const clip_record& row : rows.generator_rows)
        rows.clip_data_array.push_back(&row);
}

void append_video_tracks(report_rows& rows, const analysis_result& analysis, const std::vector<int>& ticks,
                         bool enabled_only)
{
    const records_by_track clips(analysis.video_clip_data_array, enabled_only);
    const records_by_track markers(analysis.video_clip_marker_array, enabled_only);
    const records_by_track generators(analysis.generatoritem_array, enabled_only);
    const records_by_track filters(analysis.video_clip_filter_array, enabled_only);
    const records_by_track motion(analysis.video_clip_motion_array, enabled_only);
    const records_by_track transitions(analysis.video_transition_array, enabled_only);
    for (const std::string& label : ticked_labels('V', ticks)) {
        clips.append_to(rows.clip_data_array, label);
        markers.append_to(rows.clip_markers, label);
        generators.append_to(rows.generators, label);
        filters.append_to(rows.filters, label);
        motion.append_to(rows.motion, label);
        transitions.append_to(rows.transitions, label);
    }
}

void append_audio_tracks(report_rows& rows, const analysis_result& analysis, const std::vector<int>& ticks,
                         bool enabled_only)
{
    const records_by_track clips(analysis.audio_clip_data_array, enabled_only);
    const records_by_track markers(analysis.audio_clip_marker_array, enabled_only);
    const records_by_track filters(analysis.audio_clip_filter_array, enabled_only);
    const records_by_track transitions(analysis.audio_transition_array, enabled_only);
    for (const std::string& label : ticked_labels('A', ticks)) {
        clips.append_to(rows.clip_data_array, label);
        markers.append_to(rows.clip_markers, label);
        filters.append_to(rows.filters, label);
        transitions.append_to(rows.transitions, label);
    }
}

/// Takes out the clips from `first` on whose media file is also that of a video clip, ticked or not.
void remove_video_clip_audio(std::vector<const clip_record*>& clips, std::size_t first,
                             const std::vector<clip_record>& video_clips)
{
    std::unordered_set<std::optional<std::string_view>> video_paths;
    for (const clip_record& clip : video_clips)
        video_paths.insert(clip.path);
    const auto start = clips.begin() + static_cast<std::ptrdiff_t>(first);
    clips.erase(std::remove_if(start, clips.end(),
                               [&](const clip_record* clip) { return video_paths.contains(clip->path); }),
                clips.end());
}

/// Sorts by a frame of each record, then by the label of its track as a text: A1 before V1, V10 before V2.
template <class Record, class Frame>
void sort_by(std::vector<const Record*>& records, Frame frame_of)
{
    std::stable_sort(records.begin(), records.end(), [&](const Record* left, const Record* right) {
        return std::tie(frame_of(*left), left->place.track) < std::tie(frame_of(*right), right->place.track);
    });
}

} // namespace

report_rows assemble_rows(const analysis_result& analysis, const track_ticks& ticks, bool enabled_only,
                          bool skip_video_clip_audio)
{
    report_rows rows;
    append_video_tracks(rows, analysis, ticks.video, enabled_only);
    append_generator_rows(rows);
    const std::size_t first_audio = rows.clip_data_array.size();
    append_audio_tracks(rows, analysis, ticks.audio, enabled_only);
    if (skip_video_clip_audio)
        remove_video_clip_audio(rows.clip_data_array, first_audio, analysis.video_clip_data_array);

    const auto start_of = [](const auto& record) -> const auto&
    {
        return record.place.seq_start_frame;
    };
    sort_by(rows.clip_data_array, start_of);
    sort_by(rows.filters, start_of);
    sort_by(rows.transitions, start_of);
    sort_by(
        rows.clip_markers, [](const clip_marker_record& marker) -> const auto& { return marker.in_frame; });
    return rows;
}

} // namespace tallyframe
