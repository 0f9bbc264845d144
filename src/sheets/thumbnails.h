// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "platform/media_locator.h"
#include "platform/thumbnailer.h"
#include "run/account.h"
#include "run/diagnostics.h"
#include "sheets/sheet.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

namespace tallyframe {

/// What the in-point pictures of one report share, from row to row.
struct thumbnail_run {
    thumbnailer& pictures;
    media_locator& locator;
    diagnostics& out;
    std::filesystem::path folder; ///< where the JPEG files are written
    std::int64_t thumbnail_width = 320; ///< pixels

    std::optional<std::int64_t> thumbnail_height; ///< pixels of the last picture made
    std::vector<std::filesystem::path> cleanup_jpegs; ///< the pictures made, in row order
    std::optional<std::string> current_thumbnail_clip; ///< the media path at work, for who asks what failed

    std::unordered_set<std::string> unreadable_files = {}; ///< media that is there and gave no picture
    account lost = {}; ///< those files, and the rows without a picture of their media
};

/// Before the first row: gets the decoders ready and tells them what `clips`, the rows to come, will need.
void prepare_thumbnails(std::span<const clip_record* const> clips, thumbnail_run& run);

/// The clip's in-point picture for a row (from 0), as a new file in the run's folder. A missing file and a
/// frame that cannot be read get placeholders; nothing when the clip has no in-point or anything else fails,
/// which never ends the run: its account tells of it.
std::optional<row_picture> make_thumbnail(const clip_record& clip, std::size_t row, thumbnail_run& run);

/// Deletes the pictures that were made, as far as they are still there.
void delete_thumbnails(const thumbnail_run& run);

} // namespace tallyframe
