// SPDX-License-Identifier: MIT
#include "analysis/analyze.h"

#include "analysis/analysis_walk.h"
#include "analysis/clip_markers.h"
#include "analysis/sequence_header.h"
#include "analysis/track_walk.h"
#include "document/text_values.h"
#include "media/markers.h"

namespace tallyframe {

namespace {

std::int64_t progress_bar_length(const document_index& index, std::size_t sequence_marker_count,
                                 bool is_sequence, const walked_tracks& tracks, report_scope scope)
{
    auto length = static_cast<std::int64_t>(index.files.size() + sequence_marker_count);
    if (!is_sequence)
        return length + static_cast<std::int64_t>(tracks.video.size() + tracks.audio.size());
    if (includes_video(scope))
        length += video_item_count(tracks.video);
    if (includes_audio(scope))
        length += audio_item_count(tracks.audio);
    return length;
}

std::vector<marker_record> sequence_marker_records(const std::vector<xml_node>& markers,
                                                   std::int64_t sequence_start_frame, figure_style figures,
                                                   progress& display)
{
    std::vector<marker_record> records;
    for (const xml_node marker : markers) {
        display.advance("Analyzing Sequence Markers\n");
        records.push_back(marker_hash(marker, sequence_start_frame, false, figures));
    }
    return records;
}

} // namespace

analysis_result analyze(const document_index& index, const analysis_subject& subject,
                        document_additions& additions, media_catalogues& catalogues,
                        track_checkboxes& video_checkboxes, track_checkboxes& audio_checkboxes,
                        diagnostics& out, progress& display)
{
    const auto& [sequence, scope, missing, figures] = subject;
    analysis_result result;
    text_budget texts;
    result.figures = figures;
    result.is_sequence = static_cast<bool>(sequence);
    const std::int64_t sequence_start_frame = sequence ? read_sequence_header(sequence, missing, result) : 0;

    const walked_tracks tracks =
        sequence ? tracks_of_sequence(sequence, result.losses) : tracks_of_bins(index);
    const std::vector<xml_node> sequence_markers = sequence.all("marker");
    result.video_tracks = video_track_descriptions(tracks.video, result.is_sequence);
    result.audio_tracks = audio_track_descriptions(tracks.audio, result.is_sequence);
    display.begin(progress_bar_length(index, sequence_markers.size(), result.is_sequence, tracks, scope));

    if (sequence.attribute("explodedTracks")) {
        result.ppro = true;
        additions.refer_to_nested_files(sequence, index, texts);
    }
    const media_catalogue& media = catalogues.of(index.files, result.seq_fcp_rate, display);
    result.seq_markers_data_array =
        sequence_marker_records(sequence_markers, sequence_start_frame, figures, display);

    video_checkboxes.clone_and_clear();
    audio_checkboxes.clone_and_clear();
    std::unordered_map<const file_record*, std::size_t> media_file_positions;
    analysis_walk walk{index, media.files,          additions, out, display, result, sequence_start_frame,
                       texts, media_file_positions, {}};
    if (includes_video(scope))
        walk_video_tracks(walk, tracks.video, video_checkboxes);
    if (includes_audio(scope))
        walk_audio_tracks(walk, tracks.audio, audio_checkboxes);

    remove_duplicates(result.video_clip_marker_array);
    remove_duplicates(result.audio_clip_marker_array);
    result.reels_array = media.reels;
    if (figures == figure_style::exact)
        std::erase(result.reels_array, std::string()); // a reel element without a name names no reel
    return result;
}

} // namespace tallyframe
