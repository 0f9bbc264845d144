// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/picture_makers.h"
#include "media_files/picture_store.h"
#include "platform/thumbnailer.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <span>

namespace tallyframe {

/// Has pictures made by helpers.
///
/// Says that it is older than 10.14 and not older than 10.10: the asset route then reads whatever there is,
/// films and stills, and the movie route after it nothing, so that a file that gives no picture gets the
/// problem placeholder.
class helper_thumbnailer final : public thumbnailer {
public:
    /// `resources`: where the placeholders are. `store`: pictures of earlier runs; may be null.
    helper_thumbnailer(std::filesystem::path resources, std::unique_ptr<picture_makers> makers,
                       std::unique_ptr<picture_store> store = nullptr);

    void prepare(std::span<const expected_frame> frames) override;
    bool is_yosemite_or_later() const override { return true; }
    bool is_mojave_or_later() const override { return false; }
    std::filesystem::path resource_directory() const override { return resources_; }
    std::shared_ptr<media_image> image_by_reference(const std::filesystem::path& file) override;
    std::shared_ptr<media_asset> asset_with_url(const std::filesystem::path& file) override;
    opened_movie movie_with_url(const std::filesystem::path& file) override;
    std::unique_ptr<image_source>
    image_source_with_data(const std::shared_ptr<const image_content>& data) override;
    void write_to_file(std::span<const std::uint8_t> data, const std::filesystem::path& file) override;

private:
    std::optional<jpeg_picture> picture(const picture_key& key);

    std::filesystem::path resources_;
    std::unique_ptr<picture_makers> makers_;
    std::unique_ptr<picture_store> store_;
    std::map<picture_key, std::optional<jpeg_picture>> placeholders_; ///< row after row shows the same ones
};

} // namespace tallyframe
