// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tallyframe {

/// A moment in a media file: value / timescale seconds after its first frame. Stays a fraction, since most
/// frame boundaries of 29.97 or 23.976 frames a second have no exact decimal form. The timescale is above 0.
struct media_time {
    std::int64_t value = 0;
    std::int64_t timescale = 1;

    bool operator==(const media_time&) const = default;
};

/// A picture in the size in which the report shows it: the bytes of a JPEG file, of quality 80 of 100. What
/// made it keeps the pixels to itself.
struct jpeg_picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;

    bool operator==(const jpeg_picture&) const = default;
};

/// A whole picture on its way from an image to an image source. What it holds is their own business.
class image_content {
public:
    virtual ~image_content() = default;
};

/// A still picture. The file behind it is opened only when one of these is asked.
class media_image {
public:
    virtual ~media_image() = default;
    virtual bool is_valid() = 0;
    virtual bool has_representations() = 0;

    /// Nothing when the picture cannot be read.
    virtual std::shared_ptr<const image_content> tiff_representation() = 0;
};

/// A picture that thumbnails can be made from.
class image_source {
public:
    virtual ~image_source() = default;

    /// The picture reduced so that its longer side has at most `max_pixel_size` pixels; never enlarged.
    virtual std::optional<jpeg_picture> scaled_bitmap(int max_pixel_size) = 0;
};

/// A media file opened for its tracks.
class media_asset {
public:
    virtual ~media_asset() = default;

    /// Video, sound and other tracks. A still picture has none.
    virtual std::size_t track_count() = 0;

    /// The frame on display at that time, as a viewer shows it, `width` pixels wide and as high as its aspect
    /// asks. Nothing when no frame is on display then, or it cannot be decoded.
    virtual std::optional<jpeg_picture> frame_at(media_time time, int width) = 0;
};

struct movie_frame {
    std::shared_ptr<media_image> image;
    std::optional<std::string> error; ///< may come with an image
};

/// A media file opened by the older of the two routes.
class media_movie {
public:
    virtual ~media_movie() = default;
    virtual movie_frame frame_at(media_time time) = 0;
};

struct opened_movie {
    std::unique_ptr<media_movie> movie;
    std::optional<std::string> error; ///< may come with a movie
};

/// A frame that the rows of a report will ask for.
struct expected_frame {
    std::filesystem::path file;
    media_time time;
    int width = 0;
};

/// Makes pictures from media files.
///
/// What cannot be opened or decoded gives nothing; an exception is a failure that the caller logs before it
/// goes on with the next row.
class thumbnailer {
public:
    virtual ~thumbnailer() = default;

    /// Gets the decoders ready, before the first row. `frames` are those that the rows will ask for, in their
    /// order, so that neighbours in a file can be read in one go; asking for others stays allowed.
    virtual void prepare(std::span<const expected_frame> frames) = 0;

    /// Which of the frame-reading routes apply: assets only from the first on, only assets from the second
    /// on, movies before it.
    virtual bool is_yosemite_or_later() const = 0;
    virtual bool is_mojave_or_later() const = 0;

    /// The folder that holds Missing.png and Problem.png.
    virtual std::filesystem::path resource_directory() const = 0;

    /// Never null: whether it is a picture shows when it is read.
    virtual std::shared_ptr<media_image> image_by_reference(const std::filesystem::path& file) = 0;

    /// Null when it cannot be opened.
    virtual std::shared_ptr<media_asset> asset_with_url(const std::filesystem::path& file) = 0;
    virtual opened_movie movie_with_url(const std::filesystem::path& file) = 0;

    /// Null when no thumbnail can be made from the data.
    virtual std::unique_ptr<image_source>
    image_source_with_data(const std::shared_ptr<const image_content>& data) = 0;

    /// Writes a file in place; a failure leaves no file, or a part of one that the caller does not count.
    virtual void write_to_file(std::span<const std::uint8_t> data, const std::filesystem::path& file) = 0;
};

} // namespace tallyframe
