// SPDX-License-Identifier: MIT
#include "media_files/pictures/ffmpeg_thumbnailer.h"

#include "media_files/pictures/displayed_picture.h"
#include "media_files/pictures/jpeg_file.h"

#include <cmath>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace tallyframe {

namespace {

class still_image final : public media_image {
public:
    still_image(media_reader& reader, std::filesystem::path file)
        : reader_(reader), file_(std::move(file)) { }

    bool is_valid() override { return tiff_representation() != nullptr; }
    bool has_representations() override { return is_valid(); }
    image_data tiff_representation() override { return reader_.still(file_); }

private:
    media_reader& reader_;
    std::filesystem::path file_;
};

class video_asset final : public media_asset {
public:
    video_asset(media_reader& reader, std::filesystem::path file)
        : reader_(reader), file_(std::move(file)) { }

    std::size_t track_count() override { return reader_.track_count(file_); }
    std::optional<bitmap> frame_at(media_time time, int width) override
    {
        return reader_.frame_at(file_, time, width);
    }

private:
    media_reader& reader_;
    std::filesystem::path file_;
};

/// Knows stills only: a video that its asset could not show is not tried a second time.
class still_movie final : public media_movie {
public:
    explicit still_movie(std::shared_ptr<media_image> still) : still_(std::move(still)) { }

    movie_frame frame_at(media_time) override
    {
        if (!still_->is_valid())
            return {nullptr, "cannot be decoded"};
        return {still_, std::nullopt};
    }

private:
    std::shared_ptr<media_image> still_;
};

class bitmap_source final : public image_source {
public:
    bitmap_source(image_data picture, reduced_picture& latest) : picture_(std::move(picture)), latest_(latest)
    {
    }

    std::optional<bitmap> scaled_bitmap(int max_pixel_size) override
    {
        if (latest_.original != picture_ || latest_.max_pixel_size != max_pixel_size) {
            const picture_size size = size_within({picture_->width, picture_->height}, max_pixel_size);
            latest_ = {picture_, max_pixel_size, resized(*picture_, size)};
        }
        return latest_.reduced;
    }

private:
    image_data picture_;
    reduced_picture& latest_;
};

} // namespace

ffmpeg_thumbnailer::ffmpeg_thumbnailer(std::filesystem::path resources, diagnostics& out)
    : resources_(std::move(resources)), reader_(out)
{
}

void ffmpeg_thumbnailer::prepare(std::span<const expected_frame> frames)
{
    reader_.expect(frames);
}

std::shared_ptr<media_image> ffmpeg_thumbnailer::image_by_reference(const std::filesystem::path& file)
{
    return std::make_shared<still_image>(reader_, file);
}

std::shared_ptr<media_asset> ffmpeg_thumbnailer::asset_with_url(const std::filesystem::path& file)
{
    return std::make_shared<video_asset>(reader_, file);
}

opened_movie ffmpeg_thumbnailer::movie_with_url(const std::filesystem::path& file)
{
    return {std::make_unique<still_movie>(image_by_reference(file)), std::nullopt};
}

std::unique_ptr<image_source> ffmpeg_thumbnailer::image_source_with_data(const image_data& data)
{
    return data ? std::make_unique<bitmap_source>(data, latest_) : nullptr;
}

std::vector<std::uint8_t> ffmpeg_thumbnailer::jpeg_representation(const bitmap& picture,
                                                                  double compression_factor)
{
    return jpeg_file(picture, static_cast<int>(std::lround(compression_factor * 100)));
}

void ffmpeg_thumbnailer::write_to_file(std::span<const std::uint8_t> data, const std::filesystem::path& file)
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
