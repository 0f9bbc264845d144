// SPDX-License-Identifier: MIT
#include "media_files/helper_thumbnailer.h"

#include <fstream>
#include <functional>
#include <stdexcept>
#include <utility>

namespace tallyframe {

namespace {

using make_picture = std::function<std::optional<jpeg_picture>(media_time, int width)>;

class film final : public media_asset {
public:
    explicit film(make_picture make) : make_(std::move(make)) { }

    /// Only asked for where stills are told from films before a frame is asked for.
    std::size_t track_count() override { return 1; }
    std::optional<jpeg_picture> frame_at(media_time time, int width) override { return make_(time, width); }

private:
    make_picture make_;
};

class no_movie final : public media_movie {
public:
    movie_frame frame_at(media_time) override { return {nullptr, "cannot be decoded"}; }
};

/// A picture that is read when its size is known.
class still_content final : public image_content {
public:
    explicit still_content(make_picture made_by) : make(std::move(made_by)) { }
    make_picture make;
};

class still final : public media_image {
public:
    explicit still(make_picture make) : content_(std::make_shared<still_content>(std::move(make))) { }

    bool is_valid() override { return true; }
    bool has_representations() override { return true; }
    std::shared_ptr<const image_content> tiff_representation() override { return content_; }

private:
    std::shared_ptr<const still_content> content_;
};

class still_source final : public image_source {
public:
    explicit still_source(std::shared_ptr<const still_content> content) : content_(std::move(content)) { }

    std::optional<jpeg_picture> scaled_bitmap(int max_pixel_size) override
    {
        return content_->make({0, 1}, max_pixel_size);
    }

private:
    std::shared_ptr<const still_content> content_;
};

} // namespace

helper_thumbnailer::helper_thumbnailer(std::filesystem::path resources,
                                       std::unique_ptr<picture_makers> makers,
                                       std::unique_ptr<picture_store> store)
    : resources_(std::move(resources)), makers_(std::move(makers)), store_(std::move(store))
{
}

void helper_thumbnailer::prepare(std::span<const expected_frame> frames)
{
    std::vector<expected_frame> to_make;
    for (const expected_frame& frame : frames) {
        if (!store_ || !store_->contains({frame.file.string(), frame.time, frame.width}))
            to_make.push_back(frame);
    }
    makers_->plan(to_make);
}

std::optional<jpeg_picture> helper_thumbnailer::picture(const picture_key& key)
{
    if (std::optional<jpeg_picture> kept = store_ ? store_->find(key) : std::nullopt)
        return kept;
    std::optional<jpeg_picture> made = makers_->picture(key);
    if (made && store_)
        store_->keep(key, *made);
    return made;
}

std::shared_ptr<media_image> helper_thumbnailer::image_by_reference(const std::filesystem::path& file)
{
    return std::make_shared<still>([this, file](media_time time, int width) {
        const picture_key key = {file.string(), time, width};
        auto found = placeholders_.find(key);
        if (found == placeholders_.end())
            found = placeholders_.emplace(key, picture(key)).first;
        return found->second;
    });
}

std::shared_ptr<media_asset> helper_thumbnailer::asset_with_url(const std::filesystem::path& file)
{
    return std::make_shared<film>([this, file](media_time time, int width) {
        return picture({file.string(), time, width});
    });
}

opened_movie helper_thumbnailer::movie_with_url(const std::filesystem::path&)
{
    return {std::make_unique<no_movie>(), std::nullopt};
}

std::unique_ptr<image_source>
helper_thumbnailer::image_source_with_data(const std::shared_ptr<const image_content>& data)
{
    auto content = std::dynamic_pointer_cast<const still_content>(data);
    return content ? std::make_unique<still_source>(std::move(content)) : nullptr;
}

void helper_thumbnailer::write_to_file(std::span<const std::uint8_t> data, const std::filesystem::path& file)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
    out.close();
    if (out)
        return;
    std::error_code unseen;
    std::filesystem::remove(file, unseen);
    throw std::runtime_error("cannot write " + file.string());
}

} // namespace tallyframe
