// SPDX-License-Identifier: MIT
#include "analysis/analyze.h"

#include "analysis/analysis_walk.h"
#include "analysis/clip_markers.h"
#include "analysis/sequence_header.h"
#include "analysis/track_walk.h"
#include "document/text_values.h"
#include "media/markers.h"
#include "media/media_files.h"

#include <set>

namespace tallyframe {

namespace {

/// Which kinds of track give records.
struct analysis_scope {
    bool video;
    bool audio;
};

std::int64_t progress_bar_length(const document_index& index, std::size_t sequence_marker_count,
                                 bool is_sequence, const walked_tracks& tracks, analysis_scope scope)
{
    auto length = static_cast<std::int64_t>(index.files.size() + sequence_marker_count);
    if (!is_sequence)
        return length + static_cast<std::int64_t>(tracks.video.size() + tracks.audio.size());
    if (scope.video)
        length += video_item_count(tracks.video);
    if (scope.audio)
        length += audio_item_count(tracks.audio);
    return length;
}

/// Refers each video clip that is itself a sequence to the file of the first clip inside, so that it is
/// listed with that media.
void add_files_to_nested_sequences(xml_node sequence, document_index& index, text_budget& texts)
{
    for (xml_node nested : sequence.all("media/video/track/clipitem/sequence")) {
        const auto id = nested.attribute("id");
        if (!id)
            continue;
        if (const xml_node file = index.nested_sequence_file(with_quotes_escaped(*id))) {
            const xml_node reference = nested.insert_reference_before(file);
            texts.spend(reference.markup());
            index.add_file_of_clip_item(reference);
        }
    }
}

std::vector<marker_record> sequence_marker_records(const std::vector<xml_node>& markers,
                                                   std::int64_t sequence_start_frame, progress& display)
{
    std::vector<marker_record> records;
    for (const xml_node marker : markers) {
        display.advance("Analyzing Sequence Markers\n");
        records.push_back(marker_hash(marker, sequence_start_frame));
    }
    return records;
}

/// Each reel once, in ascending order of the names' bytes.
std::vector<reel_record> reel_records(const std::vector<std::string>& reel_names)
{
    std::vector<reel_record> records;
    for (const std::string& name : std::set<std::string>(reel_names.begin(), reel_names.end()))
        records.push_back({name, 0});
    return records;
}

} // namespace

analysis_result analyze(document_index& index, std::string_view uuid,
                        std::string_view import_video_audio_preference, track_checkboxes& video_checkboxes,
                        track_checkboxes& audio_checkboxes, diagnostics& out, progress& display)
{
    const analysis_scope scope{import_video_audio_preference.find("video") != std::string_view::npos,
                               import_video_audio_preference.find("audio") != std::string_view::npos};
    analysis_result result;
    text_budget texts;
    const xml_node sequence = index.sequence_with_uuid(uuid);
    result.is_sequence = static_cast<bool>(sequence);
    const std::int64_t sequence_start_frame = sequence ? read_sequence_header(sequence, result) : 0;

    const walked_tracks tracks = sequence ? tracks_of_sequence(sequence) : tracks_of_bins(index);
    const std::vector<xml_node> sequence_markers = sequence.all("marker");
    result.video_tracks = video_track_descriptions(tracks.video, result.is_sequence);
    result.audio_tracks = audio_track_descriptions(tracks.audio, result.is_sequence);
    display.begin(progress_bar_length(index, sequence_markers.size(), result.is_sequence, tracks, scope));

    if (sequence.attribute("explodedTracks")) {
        result.ppro = true;
        add_files_to_nested_sequences(sequence, index, texts);
    }
    const files_info media = get_files_info(index.files, result.seq_fcp_rate, display);
    result.seq_markers_data_array = sequence_marker_records(sequence_markers, sequence_start_frame, display);

    video_checkboxes.clone_and_clear();
    audio_checkboxes.clone_and_clear();
    analysis_walk walk{index, media.files, out, display, result, sequence_start_frame, texts, {}};
    if (scope.video)
        walk_video_tracks(walk, tracks.video, video_checkboxes);
    if (scope.audio)
        walk_audio_tracks(walk, tracks.audio, audio_checkboxes);

    remove_duplicates(result.video_clip_marker_array);
    remove_duplicates(result.audio_clip_marker_array);
    result.reels_array = reel_records(media.reel_names);
    return result;
}

} // namespace tallyframe
