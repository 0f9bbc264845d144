// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/pictures/media_reader.h"
#include "platform/thumbnailer.h"
#include "run/diagnostics.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tallyframe {

/// A picture and what it was reduced to.
struct reduced_picture {
    image_data original;
    int max_pixel_size = 0;
    std::optional<bitmap> reduced;
};

/// Makes pictures with the FFmpeg libraries.
///
/// Says that it is older than 10.14 and not older than 10.10: the asset route reads video, and the movie
/// route after it stills, so that a file that neither can decode gets the problem placeholder.
class ffmpeg_thumbnailer final : public thumbnailer {
public:
    /// `resources`: where the placeholders are. `out` is told which files were given up, and why.
    ffmpeg_thumbnailer(std::filesystem::path resources, diagnostics& out);

    void prepare(std::span<const expected_frame> frames) override;
    bool is_yosemite_or_later() const override { return true; }
    bool is_mojave_or_later() const override { return false; }
    std::filesystem::path resource_directory() const override { return resources_; }
    std::shared_ptr<media_image> image_by_reference(const std::filesystem::path& file) override;
    std::shared_ptr<media_asset> asset_with_url(const std::filesystem::path& file) override;
    opened_movie movie_with_url(const std::filesystem::path& file) override;
    std::unique_ptr<image_source> image_source_with_data(const image_data& data) override;
    std::vector<std::uint8_t> jpeg_representation(const bitmap& picture, double compression_factor) override;
    void write_to_file(std::span<const std::uint8_t> data, const std::filesystem::path& file) override;

private:
    std::filesystem::path resources_;
    media_reader reader_;
    reduced_picture latest_; ///< where media is missing, row after row shows the same placeholder
};

} // namespace tallyframe
