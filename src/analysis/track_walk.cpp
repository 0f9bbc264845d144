// SPDX-License-Identifier: MIT
#include "analysis/track_walk.h"

#include "analysis/audio_clip.h"
#include "analysis/generators.h"
#include "analysis/transitions.h"
#include "analysis/video_clip.h"
#include "text/letter_case.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace tallyframe {

namespace {

constexpr std::string_view video_items[] = {"clipitem", "generatoritem", "transitionitem"};
constexpr std::string_view audio_items[] = {"clipitem", "transitionitem"};
constexpr std::string_view clip_items[] = {"clipitem"};

std::int64_t item_count(xml_node track, std::span<const std::string_view> kinds)
{
    return std::ranges::count_if(track.children(), [kinds](xml_node item) {
        return std::ranges::any_of(kinds, [item](std::string_view kind) { return item.has_name(kind); });
    });
}

std::int64_t item_count(const std::vector<xml_node>& tracks, std::span<const std::string_view> kinds)
{
    std::int64_t count = 0;
    for (const xml_node track : tracks)
        count += item_count(track, kinds);
    return count;
}

/// Empty, or a blank and the name, as it is joined to the track's label.
std::string track_name_of(xml_node track)
{
    const auto name = track.attribute("MZ.TrackName");
    return name ? " " + *name : "";
}

std::string enabled_of(xml_node track)
{
    return upper_cased(track.text_of("enabled").value_or("TRUE"));
}

std::vector<track_description> descriptions(const std::vector<xml_node>& tracks, bool is_sequence,
                                            char letter, std::span<const std::string_view> kinds)
{
    std::vector<track_description> entries;
    if (!is_sequence) {
        if (!tracks.empty())
            entries.push_back({std::string{letter} + "1", "", "TRUE", item_count(tracks, kinds)});
        return entries;
    }
    for (const xml_node track : tracks)
        entries.push_back({letter + std::to_string(entries.size() + 1), track_name_of(track),
                           enabled_of(track), item_count(track, kinds)});
    return entries;
}

track_context context_of(analysis_walk& walk, xml_node track, char letter, std::size_t index)
{
    track_context context;
    context.track = track;
    context.label = letter + std::to_string(index + 1);
    context.name = track_name_of(track);
    context.enabled = enabled_of(track);
    if (!walk.result.is_sequence) {
        context.bin_clip = track.parent().parent().parent(); // clip/media/video/track
        context.bin = context.bin_clip.parent().parent().text_of("name"); // bin/children/clip
        if (context.bin_clip.attribute("explodedTracks"))
            walk.result.ppro = true;
    }
    return context;
}

template <class Analyze>
void for_each_item(xml_node track, std::string_view kind, const Analyze& analyze_item)
{
    std::size_t number = 0;
    for (const xml_node item : track.children()) {
        if (item.has_name(kind))
            analyze_item(item, ++number);
    }
}

/// Records are large: they need not be moved again and again as more of them come.
void make_room_for_clips(std::vector<clip_record>& records, const std::vector<xml_node>& tracks)
{
    records.reserve(records.size() + static_cast<std::size_t>(item_count(tracks, clip_items)));
}

void walk_transitions(analysis_walk& walk, const track_context& track,
                      std::vector<transition_record>& records)
{
    for_each_item(track.track, "transitionitem", [&](xml_node item, std::size_t) {
        walk.display.advance("Analyzing Transitions in Track " + track.label + "\n");
        records.push_back(transition_record_of(walk, track, item));
    });
}

} // namespace

walked_tracks tracks_of_sequence(xml_node sequence, account& losses)
{
    constexpr std::string_view items[] = {"clipitem"};
    walked_tracks tracks{sequence.all("media/video/track"), sequence.all("media/audio/track")};
    std::erase_if(tracks.audio, [&](xml_node track) {
        const auto channel = track.attribute("currentExplodedTrackIndex");
        const bool is_further_channel = channel && *channel != "0";
        if (is_further_channel)
            losses.add(loss_kind::further_channels, static_cast<std::size_t>(item_count(track, items)));
        return is_further_channel;
    });
    return tracks;
}

walked_tracks tracks_of_bins(const document_index& index)
{
    walked_tracks tracks;
    for (const xml_node media : index.bin_clip_media) {
        const bool has_video = static_cast<bool>(media.child("video"));
        if (const xml_node track = media.first(has_video ? "video/track" : "audio/track"))
            (has_video ? tracks.video : tracks.audio).push_back(track);
    }
    return tracks;
}

std::int64_t video_item_count(const std::vector<xml_node>& tracks)
{
    return item_count(tracks, video_items);
}

std::int64_t audio_item_count(const std::vector<xml_node>& tracks)
{
    return item_count(tracks, audio_items);
}

std::vector<track_description> video_track_descriptions(const std::vector<xml_node>& tracks, bool is_sequence)
{
    return descriptions(tracks, is_sequence, 'V', video_items);
}

std::vector<track_description> audio_track_descriptions(const std::vector<xml_node>& tracks, bool is_sequence)
{
    return descriptions(tracks, is_sequence, 'A', audio_items);
}

void walk_video_tracks(analysis_walk& walk, const std::vector<xml_node>& tracks, track_checkboxes& checkboxes)
{
    make_room_for_clips(walk.result.video_clip_data_array, tracks);
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const std::size_t index = walk.result.is_sequence ? i : 0;
        const track_context track = context_of(walk, tracks[i], 'V', index);
        checkboxes.restore(index);
        for_each_item(track.track, "clipitem", [&](xml_node item, std::size_t number) {
            analyze_video_clip(walk, track, item, number);
        });
        for_each_item(track.track, "generatoritem", [&](xml_node item, std::size_t) {
            walk.display.advance("Analyzing Titles in Track " + track.label + "\n");
            walk.result.generatoritem_array.push_back(generator_record_of(walk, track, item));
        });
        walk_transitions(walk, track, walk.result.video_transition_array);
    }
}

void walk_audio_tracks(analysis_walk& walk, const std::vector<xml_node>& tracks, track_checkboxes& checkboxes)
{
    make_room_for_clips(walk.result.audio_clip_data_array, tracks);
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const std::size_t index = walk.result.is_sequence ? i : 0;
        const track_context track = context_of(walk, tracks[i], 'A', index);
        checkboxes.restore(index);
        for_each_item(track.track, "clipitem", [&](xml_node item, std::size_t number) {
            analyze_audio_clip(walk, track, item, number);
        });
        walk_transitions(walk, track, walk.result.audio_transition_array);
    }
}

} // namespace tallyframe
