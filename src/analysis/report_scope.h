// SPDX-License-Identifier: MIT
#pragma once

namespace tallyframe {

/// Which kinds of track a report tells of.
enum class report_scope { video_audio, video, audio };

constexpr bool includes_video(report_scope scope)
{
    return scope != report_scope::audio;
}

constexpr bool includes_audio(report_scope scope)
{
    return scope != report_scope::video;
}

} // namespace tallyframe
