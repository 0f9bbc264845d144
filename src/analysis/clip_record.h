// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"
#include "timecode/display_format.h"
#include "timecode/frame_rates.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tallyframe {

/// An exact fraction in lowest terms, its denominator above 0.
struct rational {
    std::int64_t numerator = 0;
    std::int64_t denominator = 1;

    bool operator==(const rational&) const = default;
};

/// Where an item stands: its track and its frames on the sequence's clock, the sequence's start timecode
/// included.
struct track_position {
    std::string track; ///< "V" or "A" and the track's number from 1, such as "V1"
    std::string track_name; ///< empty, or a blank and the name, as it is joined to the label
    std::int64_t seq_start_frame = 0;
    std::int64_t seq_end_frame = 0; ///< last frame covered, inclusive
    std::int64_t seq_length = 0;

    bool operator==(const track_position&) const = default;
};

/// A part of a media file in its own frames, of which the first is 0.
struct used_frames {
    std::int64_t first = 0;
    std::int64_t last = 0; ///< inclusive

    bool operator==(const used_frames&) const = default;
};

/// Notes that travel with a clip, trimmed. Nothing and empty text are told apart.
struct clip_notes {
    std::optional<std::string> description, scene, shottake, lognote, scenenote, shotnote, takenote;
    std::optional<std::string> cameraroll, dailyroll, labroll;
    std::optional<std::string> label; ///< "None" for a clip without a label
    std::optional<std::string> mastercomment1, mastercomment2, mastercomment3, mastercomment4;
    std::optional<std::string> clipcommenta, clipcommentb;

    bool operator==(const clip_notes&) const = default;
};

/// A row of the clips sheet: a clip of a video track, of an audio track, or a generated item that stands
/// among them. What a kind does not have is absent.
///
/// Source frames count on the media's own timecode at fcp_rate; they are fractional only when the media's
/// first timecode is.
struct clip_record {
    track_position place;
    bool isImage = false;
    std::optional<std::string> bin; ///< the bin's name, outside sequences
    std::optional<std::string> name;
    std::optional<double> src_start_frame;
    std::optional<double> src_end_frame; ///< inclusive
    std::optional<double> src_length;
    std::optional<frame_rate> fcp_rate;
    std::optional<std::string> type; ///< the rate's display name; what generates a generated item
    std::optional<std::string> frame_size;
    display_format displayformat = display_format::unknown;
    std::optional<std::string> video_format;
    std::optional<std::string> audio_format;
    std::optional<std::string> samplerate; ///< audio: samples a second, as written
    clip_notes notes;
    std::optional<std::string> reel_name;
    std::optional<std::string> roll_name; ///< never set for audio clips
    std::optional<std::string> path;
    std::optional<std::size_t> media_file; ///< position among the analysis's media_files
    std::optional<used_frames> media_frames; ///< what the clip shows of it; nothing for a still image
    std::optional<rational> image_time; ///< video: in-point in seconds from the start of the media
    std::string enabled = "TRUE";
    xml_node audio_item; ///< audio: the clip item, for as long as the document is loaded
};

} // namespace tallyframe
