// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace tallyframe {

/// The progress display of a run: a bar, a message line and the application's badge.
///
/// Any call may throw `run_cancelled` when the user has asked to stop; the operation then ends and leaves
/// nothing behind.
class progress {
public:
    virtual ~progress() = default;

    /// A determinate bar at 0 of `progress_bar_length` steps.
    virtual void begin(std::int64_t progress_bar_length) = 0;

    /// One step further. The message line shows `message`, or keeps its text when that is empty; the badge
    /// shows badge_text.
    virtual void advance(std::string_view message) = 0;

    /// The message line alone, redrawn at once.
    virtual void show_message(std::string_view message) = 0;

    /// An indeterminate, moving bar with a message, for a step whose length nobody knows.
    virtual void spin(std::string_view message) = 0;

    /// The run is over: the display closes.
    virtual void end() = 0;

    /// Shows nothing: only the place to throw from, for a step that takes long without a change to show.
    /// Cheap enough to be called every few kilobytes.
    virtual void leave_if_cancelled() { }
};

/// A run without a display.
class no_progress final : public progress {
public:
    void begin(std::int64_t) override { }
    void advance(std::string_view) override { }
    void show_message(std::string_view) override { }
    void spin(std::string_view) override { }
    void end() override { }
};

} // namespace tallyframe
