// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"
#include "media_files/pictures/displayed_picture.h"
#include "media_files/pictures/ffmpeg_handles.h"
#include "media_files/pictures/media_input.h"
#include "media_files/pictures/time_limit.h"
#include "platform/thumbnailer.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tallyframe {

/// A decoded frame and when it is on display, in ticks of its stream's clock.
struct timed_frame {
    frame_ptr pixels;
    std::int64_t shown_from = 0;
    std::int64_t duration = 0; ///< 0 when the file does not say
};

/// The video track of a media file: its frames in the order of display, from the file's start or from a key
/// frame on.
///
/// Only known container formats are read, and nothing but the file itself: a playlist in disguise would make
/// the library fetch what it names. All work ends early when the time limit is over.
class video_stream {
public:
    /// Null when the file is no media file. It may still have no video; only track_count means something
    /// then.
    static std::unique_ptr<video_stream> open(const media_file& file, const time_limit& limit);

    std::size_t track_count() const { return format_->nb_streams; }

    /// False as well for a file whose only picture is a cover.
    bool has_video() const { return decoder_ != nullptr; }

    const track_display& display() const { return display_; }

    /// Where the first frame starts.
    std::int64_t first_tick() const { return first_tick_; }

    /// A frame's usual duration in ticks; 0 when the file does not say.
    std::int64_t usual_duration() const { return usual_duration_; }

    /// Whether frames are stored in the order of display.
    bool is_stored_in_order() const;

    /// The last tick that a time includes, for finding the frame on display then: a frame that starts at a
    /// tick after it comes too late. A time that starts a frame by the rate of a document stands for the
    /// frame of that number where the media counts nearly as fast (29.97 for 30000/1001). Nothing when the
    /// time is beyond all clocks.
    std::optional<std::int64_t> tick_of(media_time documented) const;

    std::int64_t ticks_of_seconds(int seconds) const;

    /// The start of the last key frame at or before a tick, as far as the file's index tells.
    std::optional<std::int64_t> key_frame_at_or_before(std::int64_t tick) const;

    /// Whether the index lists what lies around a tick.
    bool index_reaches(std::int64_t tick) const;

    /// Whether the file is several streams joined end to end, whose times come again: only its start can be
    /// found, and each part goes on where the one before it ends.
    bool is_joined() const { return is_joined_; }

    /// Goes to the last key frame before `goal`, or, where the file has no index, to the first one after it.
    /// False when that comes after `latest`; the next frame is then anyone's guess.
    bool seek(std::int64_t goal, std::int64_t latest);

    /// From now on only the frames on display at these ticks matter. Others may be left out of what `next`
    /// gives, where no frame is predicted from them: half of a film need not be decoded then.
    void need_only(std::vector<std::int64_t> ticks);

    /// The next frame. Its pixels are null at the end, and when nothing more can be read.
    timed_frame next();

private:
    video_stream(std::unique_ptr<media_input> input, format_context_ptr format, const time_limit& limit);

    static std::unique_ptr<video_stream> open_as_stored(const media_file& file, const time_limit& limit);

    void choose_track();
    bool begins_without_time();
    std::optional<std::int64_t> first_decode_tick() const;
    std::optional<std::int64_t> counted_first_tick();
    void begin_at(std::optional<std::int64_t> first_tick, std::optional<std::int64_t> first_decoded);
    void open_decoder(const AVCodec& codec);
    bool read_packet();
    void feed_decoder();
    bool can_leave_out(const AVPacket& packet) const;
    std::optional<std::int64_t> start_of(const AVFrame& frame);

    const time_limit& limit_;
    std::unique_ptr<media_input> input_; ///< outlives what reads it
    format_context_ptr format_;
    AVStream* track_ = nullptr;
    codec_context_ptr decoder_;
    packet_ptr packet_;
    bool is_joined_ = false;
    std::int64_t part_delay_ =
        0; ///< from the times of a joined stream's part at hand to those it is shown at
    bool packet_waits_ = false; ///< read by a seek, and not decoded yet
    std::int64_t first_tick_ = 0; ///< of the media, its time 0
    std::int64_t display_delay_ =
        0; ///< from a key frame's decoding to its display, where no times are stored
    std::int64_t usual_duration_ = 0;
    std::optional<std::int64_t> next_tick_; ///< where the frame before ends; unknown after a seek
    std::int64_t decodable_from_ = INT64_MIN; ///< frames before it lack what they were predicted from
    std::optional<std::vector<std::int64_t>> needed_; ///< ascending; nothing while every frame matters
    std::int64_t latest_start_ = INT64_MIN; ///< of the packets read since the start or the last seek
    bool is_under_way_ = false; ///< a whole frame has come out since the start or the last seek
    track_display display_;
};

} // namespace tallyframe
