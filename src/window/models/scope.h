// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/report_scope.h"

namespace tallyframe::window {

// The tags of importVideoAudioRadioButtons, which the settings keep too: 0 video and audio, 1 video, 2 audio.

/// The scope for a tag; an unknown one changes nothing.
constexpr report_scope scope_for_tag(int tag, report_scope previous)
{
    switch (tag) {
    case 0:
        return report_scope::video_audio;
    case 1:
        return report_scope::video;
    case 2:
        return report_scope::audio;
    default:
        return previous;
    }
}

constexpr int tag_for_scope(report_scope scope)
{
    return static_cast<int>(scope);
}

} // namespace tallyframe::window
