// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"
#include "media_files/pictures/bitmap.h"
#include "media_files/pictures/time_limit.h"
#include "media_files/pictures/video_stream.h"
#include "platform/thumbnailer.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tallyframe {

/// What to do with the pictures that a decoder comes by on its way to another one.
struct pictures_by_the_way {
    std::function<bool(media_time)> wants;
    std::function<void(media_time, bitmap)> take;
};

/// A media file that stays open for one frame after the other. Reads on from the last frame while that is
/// cheaper than going back to a key frame.
class video_file {
public:
    /// `expected`: times that frame_at will be asked for, in any order. Null when it is no media file.
    static std::unique_ptr<video_file> open(const media_file& file, std::span<const media_time> expected,
                                            const time_limit& limit);

    std::size_t track_count() const { return stream_->track_count(); }

    /// The picture on display at `time`, `width` pixels wide; nothing when none is, or it cannot be decoded
    /// within the time limit. Offers the expected pictures before it and after it, as far as no key frame
    /// stands between, to `others`.
    std::optional<bitmap> frame_at(media_time time, int width, const pictures_by_the_way& others);

private:
    struct expected_picture {
        std::int64_t tick = 0;
        media_time time;
    };

    video_file(media_file file, std::unique_ptr<video_stream> stream, std::span<const media_time> expected,
               const time_limit& limit);

    void expect(std::span<const media_time> times);
    bool is_expected(std::int64_t tick) const;
    void tell_what_is_needed();
    void offer(const expected_picture& expected, int width, const pictures_by_the_way& others);

    bool reads_on_to(std::int64_t tick) const;
    bool go_before(std::int64_t tick);
    bool start_at_key_frame_before(std::int64_t tick, std::int64_t margin);
    bool start_over();
    bool reach(std::int64_t tick);
    bool shows(std::int64_t tick);
    bool advance();
    std::optional<bitmap> picture(int width) const;

    media_file file_;
    std::unique_ptr<video_stream> stream_;
    const time_limit& limit_;
    std::vector<expected_picture> expected_; ///< in the order of their ticks; none: any may be asked for
    timed_frame current_; ///< without pixels until the first frame is read
    std::optional<timed_frame> following_; ///< read ahead, to know how long the current one is on display
    bool is_first_ = true; ///< the current frame, or the next one to read, is the first of the file
};

} // namespace tallyframe
