// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media_locator.h"
#include "platform/media_probe.h"
#include "report/media_use.h"
#include "run/progress.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// What a check of media comes to for a file, the worst first.
enum class media_state {
    missing, ///< not where the document says, nor elsewhere
    unreadable, ///< there, and not media that can be read
    too_short, ///< lacks frames that clips show
    differs, ///< is not as the document says, and has all frames
    fine,
    unchecked, ///< nobody has looked
};

/// "missing", "too short", "ok": as lists show it; empty for unchecked.
std::string_view name_of(media_state state);

/// A fact that the file and the document tell differently.
struct media_difference {
    std::string_view fact; ///< "duration", "rate", "frame size", "start", "audio channels"
    std::string in_file;
    std::string in_document;

    bool operator==(const media_difference&) const = default;
};

struct checked_media {
    media_use use;
    media_state state = media_state::unchecked;
    std::optional<std::filesystem::path> found;
    std::optional<std::uintmax_t> bytes; ///< of the whole file
    std::optional<media_facts> facts; ///< of the file itself
    std::vector<media_difference> differences;
    std::int64_t missing_at_start = 0; ///< frames that clips and their handles need before the file's first
    std::int64_t missing_at_end = 0; ///< and after its last
};

/// What looks at the files.
struct media_inspection {
    media_locator& locator;
    media_probe& probe;
    progress& display; ///< shows the file at work, and may stop the check
};

/// `handles`: frames before and after each used range that a file has to have too. Without an inspection the
/// files are left unchecked. Throws run_cancelled.
std::vector<checked_media> check_media(std::vector<media_use> uses, std::int64_t handles,
                                       const media_inspection* inspection);

struct media_totals {
    std::size_t missing = 0;
    std::size_t unreadable = 0;
    std::size_t too_short = 0;
    std::size_t differing = 0; ///< those that are too short not counted
    std::uintmax_t bytes = 0; ///< to copy: of a file that is found twice, once

    /// Nothing that clips show is missing.
    bool is_complete() const { return missing + unreadable + too_short == 0; }
};
media_totals totals_of(std::span<const checked_media> files);

/// How the facts of a file and those of its document are written in lists; empty where there is none.
struct fact_texts {
    std::string duration; ///< timecode at the document's rate
    std::string rate; ///< "23.976"
    std::string frame_size; ///< "1920 × 1080"
    std::string start; ///< timecode
    std::string audio_channels;
};
fact_texts texts_of_file(const checked_media& media);
fact_texts texts_of_document(const checked_media& media);

/// "01:00:10:00-01:00:14:24": what clips show, as timecodes of the file, first and last frame of each range.
std::vector<std::string> range_texts(const media_use& use);

/// "12 frames are missing at its start, 1 frame is missing at its end"; empty when none is.
std::string lack_text(const checked_media& media);

} // namespace tallyframe
