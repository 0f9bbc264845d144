// SPDX-License-Identifier: MIT
#include "media_files/pictures/video_file.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace tallyframe {

namespace {

/// Within so many frames, going back to a key frame costs more than it saves.
constexpr std::int64_t near_frames = 8;

/// How far to read on through a file whose index does not say where its key frames are.
constexpr std::int64_t near_frames_without_index = 50;

/// For how long to go on after the wanted frame for the sake of others.
constexpr auto extra_time = std::chrono::seconds(1);

} // namespace

video_file::video_file(media_file file, std::unique_ptr<video_stream> stream,
                       std::span<const media_time> expected, const time_limit& limit)
    : file_(std::move(file)), stream_(std::move(stream)), limit_(limit)
{
    if (stream_->has_video())
        expect(expected);
}

std::unique_ptr<video_file> video_file::open(const media_file& file, std::span<const media_time> expected,
                                             const time_limit& limit)
{
    std::unique_ptr<video_stream> stream = video_stream::open(file, limit);
    if (!stream)
        return nullptr;
    return std::unique_ptr<video_file>(new video_file(file, std::move(stream), expected, limit));
}

void video_file::expect(std::span<const media_time> times)
{
    for (const media_time time : times) {
        if (const auto tick = stream_->tick_of(time))
            expected_.push_back({*tick, time});
    }
    std::ranges::sort(expected_, {}, &expected_picture::tick);
    tell_what_is_needed();
}

bool video_file::is_expected(std::int64_t tick) const
{
    return expected_.empty() || std::ranges::binary_search(expected_, tick, {}, &expected_picture::tick);
}

void video_file::tell_what_is_needed()
{
    if (expected_.empty())
        return;
    std::vector<std::int64_t> ticks;
    std::ranges::transform(expected_, std::back_inserter(ticks), &expected_picture::tick);
    stream_->need_only(std::move(ticks));
}

std::optional<bitmap> video_file::frame_at(media_time time, int width, const pictures_by_the_way& others)
{
    if (!stream_->has_video())
        return std::nullopt;
    const std::optional<std::int64_t> tick = stream_->tick_of(time);
    if (!tick)
        return std::nullopt;
    const bool may_have_been_left_out = !is_expected(*tick);
    if (may_have_been_left_out)
        expect({&time, 1});
    if ((may_have_been_left_out || !reads_on_to(*tick)) && !go_before(*tick))
        return std::nullopt;
    if (!current_.pixels && !advance())
        return std::nullopt;

    auto other = std::lower_bound(
        expected_.begin(), expected_.end(), current_.shown_from,
        [](const expected_picture& expected, std::int64_t from) { return expected.tick < from; });
    for (; other != expected_.end() && other->tick < *tick; ++other)
        offer(*other, width, others);
    if (!reach(*tick))
        return std::nullopt;
    std::optional<bitmap> result = picture(width);

    const auto stop = std::chrono::steady_clock::now() + extra_time;
    while (other != expected_.end() && reads_on_to(other->tick) && std::chrono::steady_clock::now() < stop)
        offer(*other++, width, others);
    return result;
}

void video_file::offer(const expected_picture& expected, int width, const pictures_by_the_way& others)
{
    if (!others.wants(expected.time) || !reach(expected.tick))
        return;
    if (std::optional<bitmap> offered = picture(width))
        others.take(expected.time, std::move(*offered));
}

bool video_file::reads_on_to(std::int64_t tick) const
{
    const std::int64_t from = current_.pixels ? current_.shown_from : stream_->first_tick();
    if (!current_.pixels && !is_first_)
        return false;
    if (tick < from)
        return is_first_;
    const std::int64_t distance = tick - from;
    if (stream_->is_joined() || distance <= near_frames * stream_->usual_duration())
        return true;
    if (const auto key_frame = stream_->key_frame_at_or_before(tick); key_frame && *key_frame > from)
        return false;
    return stream_->index_reaches(tick) || distance <= near_frames_without_index * stream_->usual_duration();
}

bool video_file::go_before(std::int64_t tick)
{
    // A file's index may count in the order of storage and name a key frame that is shown just after the
    // tick.
    for (const int seconds_before : {0, 1, 3, 10}) {
        if (start_at_key_frame_before(tick, stream_->ticks_of_seconds(seconds_before)))
            return true;
    }
    return start_over();
}

bool video_file::start_at_key_frame_before(std::int64_t tick, std::int64_t margin)
{
    current_ = {};
    following_.reset();
    is_first_ = false;
    const std::int64_t goal = std::max(tick - margin, stream_->first_tick());
    return stream_->seek(goal, tick) && advance() && current_.shown_from <= tick;
}

bool video_file::start_over()
{
    if (limit_.is_over())
        return false;
    std::unique_ptr<video_stream> stream = video_stream::open(file_, limit_);
    if (!stream || !stream->has_video())
        return false;
    stream_ = std::move(stream);
    tell_what_is_needed();
    current_ = {};
    following_.reset();
    is_first_ = true;
    return true;
}

bool video_file::reach(std::int64_t tick)
{
    while (!shows(tick)) {
        if (!advance())
            return false;
    }
    return true;
}

bool video_file::shows(std::int64_t tick)
{
    if (tick < current_.shown_from)
        return is_first_;
    const std::int64_t since = tick - current_.shown_from;
    if (since == 0 || (stream_->is_stored_in_order() && since <= current_.duration / 2))
        return true;
    if (!following_)
        following_ = stream_->next();
    if (following_->pixels)
        return following_->shown_from > tick;
    return since < std::max(current_.duration, stream_->usual_duration());
}

bool video_file::advance()
{
    timed_frame next = following_ ? std::move(*following_) : stream_->next();
    following_.reset();
    if (!next.pixels)
        return false;
    is_first_ = is_first_ && !current_.pixels;
    current_ = std::move(next);
    return true;
}

std::optional<bitmap> video_file::picture(int width) const
{
    const picture_size full = displayed_size(*current_.pixels, stream_->display());
    return displayed_picture(*current_.pixels, stream_->display(), size_of_width(full, width));
}

} // namespace tallyframe
