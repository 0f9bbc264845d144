// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "document/document_index.h"
#include "document/track_checkboxes.h"
#include "document/xml_node.h"
#include "run/account.h"

#include <cstdint>
#include <vector>

namespace tallyframe {

/// The tracks to analyse, in document order.
struct walked_tracks {
    std::vector<xml_node> video;
    std::vector<xml_node> audio;
};

/// The tracks of a sequence; of a group that Premiere Pro has written as one track a channel only the first.
/// The clip items of the others are noted in `losses`.
walked_tracks tracks_of_sequence(xml_node sequence, account& losses);

/// One track of each clip of the bins: the first video track of a clip with video, else the first audio
/// track.
walked_tracks tracks_of_bins(const document_index& index);

/// Items of the tracks that the walk visits.
std::int64_t video_item_count(const std::vector<xml_node>& tracks);
std::int64_t audio_item_count(const std::vector<xml_node>& tracks);

/// What the track tables show: an entry for each track, outside sequences one for all.
std::vector<track_description> video_track_descriptions(const std::vector<xml_node>& tracks,
                                                        bool is_sequence);
std::vector<track_description> audio_track_descriptions(const std::vector<xml_node>& tracks,
                                                        bool is_sequence);

/// Analyses the tracks' items into the records of `walk.result` and restores the check box of each track.
void walk_video_tracks(analysis_walk& walk, const std::vector<xml_node>& tracks,
                       track_checkboxes& checkboxes);
void walk_audio_tracks(analysis_walk& walk, const std::vector<xml_node>& tracks,
                       track_checkboxes& checkboxes);

} // namespace tallyframe
