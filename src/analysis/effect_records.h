// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "media/marker_record.h"
#include "timecode/display_format.h"

#include <optional>
#include <string>

namespace tallyframe {

/// A title, slug, colour matte or other generated item.
struct generator_record {
    track_position place;
    std::optional<std::string> name;
    std::string type; ///< "Slug", "BarsAndTone", "GraphicAndType", an effect's name, or "Unknown"
    std::string font; ///< names joined with ", "
    std::string text;
    std::string enabled = "TRUE";
};

struct transition_record {
    track_position place;
    std::string name; ///< "Dissolve ▸ Cross Dissolve"
    bool apple = false; ///< a built-in one
    std::string enabled = "TRUE";
};

/// A filter that is switched on, with the place and state of its clip.
struct filter_record {
    track_position place; ///< that of the clip
    std::string name;
    bool apple = false; ///< a built-in one
    std::string enabled = "TRUE";
    std::optional<std::string> clip_name;
};

/// A motion setting of a clip that differs from its neutral value.
struct motion_record {
    track_position place; ///< that of the clip
    std::string name; ///< "Scale (50%)"
    std::string enabled = "TRUE";
    std::optional<std::string> clip_name;
};

/// The track of a marker's clip, as in track_position.
struct marker_place {
    std::string track;
    std::string track_name;

    bool operator==(const marker_place&) const = default;
};

/// The clock on which a media file counts its frames.
struct media_clock {
    std::optional<double> rate; ///< frames a second
    display_format displayformat = display_format::unknown;

    bool operator==(const media_clock&) const = default;
};

/// A marker of a clip: in_frame and out_frame count on the sequence, the source frames on the clip's media.
struct clip_marker_record : marker_record {
    marker_place place;
    std::optional<std::string> clip_name;
    std::string enabled = "TRUE";
    std::optional<double> src_in_frame; ///< nothing before any clip has set the source start
    std::optional<double> src_out_frame;
    std::optional<media_clock> source_clock; ///< of the source frames; nothing for that of the sequence

    bool operator==(const clip_marker_record&) const = default;
};

} // namespace tallyframe
