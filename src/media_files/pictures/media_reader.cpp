// SPDX-License-Identifier: MIT
#include "media_files/pictures/media_reader.h"

#include "media_files/pictures/still_picture.h"

#include <algorithm>
#include <utility>

namespace tallyframe {

namespace {

/// Each open file holds a decoder with its frames, some 50 MB for high definition.
constexpr std::size_t most_open_files = 8;

constexpr std::size_t most_picture_bytes = 128U << 20U;

picture_key key_of(const media_file& file, media_time time, int width)
{
    return {file.name().string(), time, width};
}

} // namespace

media_reader::media_reader(diagnostics& out, time_limit limit)
    : out_(out), limit_(std::move(limit)), pictures_(most_picture_bytes)
{
}

void media_reader::expect(std::span<const expected_frame> frames)
{
    for (const expected_frame& frame : frames)
        expected_[frame.file.string()].push_back(frame.time);
}

std::size_t media_reader::track_count(const media_file& file)
{
    limit_.start();
    const video_file* video = opened(file);
    return video != nullptr ? video->track_count() : 0;
}

std::optional<bitmap> media_reader::frame_at(const media_file& file, media_time time, int width)
{
    const picture_key key = key_of(file, time, width);
    image_data picture = pictures_.find(key);
    if (!picture && !pictures_.contains(key)) {
        picture = read_frame(file, time, width);
        pictures_.keep(key, picture);
    }
    return picture ? std::optional(*picture) : std::nullopt;
}

image_data media_reader::read_frame(const media_file& file, media_time time, int width)
{
    if (too_slow_.contains(file.name().string()))
        return nullptr;
    limit_.start();
    const pictures_by_the_way others = {
        [&](media_time other) { return other != time && !pictures_.contains(key_of(file, other, width)); },
        [&](media_time other, bitmap picture) {
            pictures_.keep(key_of(file, other, width), std::make_shared<const bitmap>(std::move(picture)));
        },
    };
    video_file* video = opened(file);
    std::optional<bitmap> picture = video != nullptr ? video->frame_at(time, width, others) : std::nullopt;
    if (picture)
        return std::make_shared<const bitmap>(std::move(*picture));
    if (limit_.is_over()) {
        out_.write("media: given up, it takes too long to decode: " + file.name().string() + "\n");
        too_slow_.insert(file.name().string());
    }
    return nullptr;
}

image_data media_reader::still(const media_file& file)
{
    const picture_key key = key_of(file, {}, 0);
    image_data picture = pictures_.find(key);
    if (!picture && !pictures_.contains(key)) {
        picture = read_still_picture(file);
        pictures_.keep(key, picture);
    }
    return picture;
}

video_file* media_reader::opened(const media_file& file)
{
    const std::string path = file.name().string();
    const auto found = std::find_if(open_files_.begin(), open_files_.end(),
                                    [&](const open_file& candidate) { return candidate.path == path; });
    if (found != open_files_.end()) {
        open_files_.splice(open_files_.end(), open_files_, found);
        return open_files_.back().video.get();
    }
    if (open_files_.size() == most_open_files)
        open_files_.pop_front();
    std::unique_ptr<video_file> video;
    if (!is_still_picture(file))
        video = video_file::open(file, expected_[path], limit_);
    open_files_.push_back({path, std::move(video)});
    return open_files_.back().video.get();
}

} // namespace tallyframe
