// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "platform/diagnostics.h"
#include "platform/media_locator.h"
#include "platform/thumbnailer.h"
#include "workbook/worksheet.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
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
    std::vector<std::filesystem::path> cleanup_jpegs; ///< the pictures inserted, in row order
    std::optional<std::string> current_thumbnail_clip; ///< the media path at work, for who asks what failed
};

/// Before the first row: gets the decoders ready and tells them what `clips`, the rows to come, will need.
void prepare_thumbnails(std::span<const clip_record* const> clips, thumbnail_run& run);

/// A picture as it goes into its row.
struct thumbnail {
    std::filesystem::path jpeg;
    double row_height = 0; ///< points: a row as tall as the picture

    bool operator==(const thumbnail&) const = default;
};

/// The clip's in-point picture for a row (from 0), as a new file in the run's folder. A missing file and a
/// frame that cannot be read get placeholders; nothing when the clip has no in-point or anything else fails.
std::optional<thumbnail> make_thumbnail(const clip_record& clip, std::size_t row, thumbnail_run& run);

/// Makes the clip's picture, puts it into the cell (row and column from 0), and makes the row as tall. Never
/// ends the run: what fails leaves the cell empty.
void add_thumbnail(const clip_record& clip, std::size_t row, std::size_t column, xls::worksheet& sheet,
                   thumbnail_run& run);

/// Deletes the pictures that were inserted, as far as they are still there.
void delete_thumbnails(const thumbnail_run& run);

} // namespace tallyframe
