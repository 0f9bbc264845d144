// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"
#include "media_files/pictures/bitmap.h"
#include "media_files/pictures/picture_cache.h"
#include "media_files/pictures/time_limit.h"
#include "media_files/pictures/video_file.h"
#include "platform/thumbnailer.h"
#include "run/diagnostics.h"

#include <chrono>
#include <cstddef>
#include <list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tallyframe {

/// Reads pictures out of media files. Keeps the files that were used last open, and pictures that may be
/// asked for again.
class media_reader {
public:
    explicit media_reader(diagnostics& out, std::chrono::milliseconds longest = std::chrono::seconds(10))
        : media_reader(out, time_limit(longest))
    {
    }
    media_reader(diagnostics& out, time_limit limit);

    void expect(std::span<const expected_frame> frames);

    /// 0 for what is no media file, and for stills.
    std::size_t track_count(const media_file& file);

    /// The frame on display at a time, `width` pixels wide. Nothing for stills. A file that has once taken
    /// longer than the limit is not tried again.
    std::optional<bitmap> frame_at(const media_file& file, media_time time, int width);

    /// A still picture. Null for anything else.
    image_data still(const media_file& file);

private:
    struct open_file {
        std::string path;
        std::unique_ptr<video_file> video; ///< null for what is no media file
    };

    /// Null for what is no media file. Stays valid until the next call.
    video_file* opened(const media_file& file);

    image_data read_frame(const media_file& file, media_time time, int width);

    diagnostics& out_;
    time_limit limit_;
    picture_cache pictures_;
    std::list<open_file> open_files_; ///< the one used last stands last
    std::unordered_map<std::string, std::vector<media_time>> expected_;
    std::unordered_set<std::string> too_slow_;
};

} // namespace tallyframe
