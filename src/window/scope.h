// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tallyframe::window {

/// What importVideoAudioRadioButtons decides, by the tag of the chosen button: 0 video and audio, 1 video, 2
/// audio.
struct scope {
    std::string import_video_audio_preference = "video + audio";
    bool offers_video_clip_audio = true; ///< whether videoClipAudioCheckbox means anything; if not, it is off

    bool operator==(const scope&) const = default;
};

/// The scope for a tag; an unknown one changes nothing.
inline scope scope_for_tag(int tag, const scope& previous)
{
    switch (tag) {
    case 0:
        return {"video + audio", true};
    case 1:
        return {"video", false};
    case 2:
        return {"audio", false};
    default:
        return previous;
    }
}

} // namespace tallyframe::window
