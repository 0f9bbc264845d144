// SPDX-License-Identifier: MIT
#include "media_files/pictures/clip_picture.h"

#include "media_files/pictures/displayed_picture.h"
#include "media_files/pictures/jpeg_file.h"

namespace tallyframe {

namespace {

constexpr int jpeg_quality = 80;

std::optional<bitmap> still_within(media_reader& reader, const media_file& file, int width)
{
    const image_data still = reader.still(file);
    if (!still)
        return std::nullopt;
    return resized(*still, size_within({still->width, still->height}, width));
}

} // namespace

std::optional<jpeg_picture> clip_picture(media_reader& reader, const media_file& file, media_time time,
                                         int width)
{
    std::optional<bitmap> picture = reader.frame_at(file, time, width);
    if (!picture)
        picture = reader.frame_at(file, {0, 1}, width);
    if (!picture)
        picture = still_within(reader, file, width);
    if (!picture)
        return std::nullopt;
    return jpeg_picture{picture->width, picture->height, jpeg_file(*picture, jpeg_quality)};
}

} // namespace tallyframe
