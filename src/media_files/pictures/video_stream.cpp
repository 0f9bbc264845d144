// SPDX-License-Identifier: MIT
#include "media_files/pictures/video_stream.h"

#include "media_files/pictures/container_formats.h"
#include "media_files/pictures/opened_media.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>
#include <string_view>
#include <thread>
#include <utility>

namespace tallyframe {

namespace {

/// Above this, decoders run on one thread, since each thread holds frames of its own.
constexpr std::int64_t large_frame_pixels = 20'000'000;
constexpr int most_threads = 4;

/// The slowest decoder gets a limit of its own, so that a single frame ends within the time limit.
constexpr std::int64_t largest_wavelet_frame_pixels = 25'000'000;

/// The time of the first video packet behind a place in a file.
std::optional<std::int64_t> tick_behind(AVFormatContext& format, std::int64_t place)
{
    constexpr int most_packets = 2000;
    if (av_seek_frame(&format, -1, place, AVSEEK_FLAG_BYTE) < 0)
        return std::nullopt;
    const packet_ptr packet(av_packet_alloc());
    for (int i = 0; packet && i < most_packets && av_read_frame(&format, packet.get()) >= 0; ++i) {
        const AVStream& track = *format.streams[packet->stream_index];
        const std::int64_t tick = packet->pts;
        av_packet_unref(packet.get());
        if (track.codecpar->codec_type == AVMEDIA_TYPE_VIDEO && tick != AV_NOPTS_VALUE)
            return tick;
    }
    return std::nullopt;
}

/// Whether a transport stream is several, one after the other, so that times come again: looks at some
/// places.
bool is_joined_of_parts(const media_file& file, const time_limit& limit)
{
    constexpr std::int64_t ticks_per_second = 90'000;
    constexpr std::int64_t half_of_all_ticks = std::int64_t{1}
        << 32; // an earlier time may count as a later one
    constexpr int places = 64;
    const auto [input, format] = open_media_as(container_formats, file, limit);
    if (!format)
        return false;
    const std::int64_t size = avio_size(format->pb);
    std::optional<std::int64_t> before;
    for (int i = 0; i < places; ++i) {
        const std::optional<std::int64_t> tick = tick_behind(*format, size / places * i);
        if (before && tick && (*tick < *before - ticks_per_second || *tick > *before + half_of_all_ticks))
            return true;
        before = tick ? tick : before;
    }
    return false;
}

bool is_video(const AVStream& track)
{
    constexpr int not_moving = AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS;
    return track.codecpar->codec_type == AVMEDIA_TYPE_VIDEO && (track.disposition & not_moving) == 0;
}

bool is_intra_only(AVCodecID codec)
{
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(codec);
    return descriptor != nullptr && (descriptor->props & AV_CODEC_PROP_INTRA_ONLY) != 0;
}

/// Codecs of stills and of plain pixels, as scanners and renderers write films too.
bool holds_stills(AVCodecID codec)
{
    switch (codec) {
    case AV_CODEC_ID_JPEG2000:
    case AV_CODEC_ID_RAWVIDEO:
    case AV_CODEC_ID_TIFF:
    case AV_CODEC_ID_DPX:
    case AV_CODEC_ID_PNG:
    case AV_CODEC_ID_SGI:
    case AV_CODEC_ID_TARGA:
        return true;
    default:
        return false;
    }
}

orientation track_orientation(AVStream* track)
{
    std::size_t size = 0;
    const std::uint8_t* matrix = av_stream_get_side_data(track, AV_PKT_DATA_DISPLAYMATRIX, &size);
    if (matrix == nullptr || size < 9 * sizeof(std::int32_t))
        return {};
    return orientation_of(reinterpret_cast<const std::int32_t*>(matrix));
}

/// The rate that documents give media of this rate, which they know as a whole number or as 1000/1001 of one:
/// media that says 29.97 or 23.976 exactly means the same. Nothing for clocks finer than any film.
std::optional<AVRational> documented_rate(AVRational rate)
{
    constexpr double fastest = 500; // frames a second
    constexpr double nearness = 1e-4;
    if (rate.num <= 0 || rate.den <= 0 || av_q2d(rate) > fastest)
        return std::nullopt;
    for (const int divisor : {1000, 1001}) {
        const AVRational documented = {static_cast<int>(std::lround(av_q2d(rate) * divisor / 1000)) * 1000,
                                       divisor};
        if (documented.num > 0 && std::abs(av_q2d(rate) / av_q2d(documented) - 1) <= nearness)
            return documented;
    }
    return std::nullopt;
}

/// The number of the frame that starts at a time, by the rate that the time was made with.
std::optional<std::int64_t> frame_number(media_time time, AVRational rate)
{
    std::int64_t dividend = 0;
    std::int64_t divisor = 0;
    if (time.timescale <= 0 || __builtin_mul_overflow(time.value, rate.num, &dividend)
        || __builtin_mul_overflow(time.timescale, rate.den, &divisor) || dividend % divisor != 0)
        return std::nullopt;
    return dividend / divisor;
}

/// How many frames a second the media itself counts.
AVRational counted_rate(const AVStream& track)
{
    const AVRational ticks = av_inv_q(track.time_base);
    return documented_rate(ticks) ? ticks : track.r_frame_rate;
}

/// The time by the media's own count for one that a document gives. Where both counts run nearly alike, the
/// number of the frame decides: by time, 29.97 would be a frame behind 30000/1001 after eleven minutes.
media_time counted_time(media_time time, AVRational counted)
{
    const std::optional<AVRational> documented = documented_rate(counted);
    if (!documented || av_cmp_q(*documented, counted) == 0)
        return time;
    const std::optional<std::int64_t> number = frame_number(time, *documented);
    // Half way through the frame: clocks are rounded, and so are the rates that files give.
    constexpr std::int64_t halves = 2;
    media_time own = {0, halves * counted.num};
    std::int64_t middle = 0;
    if (!number || __builtin_mul_overflow(*number, halves, &middle)
        || __builtin_add_overflow(middle, 1, &middle)
        || __builtin_mul_overflow(middle, counted.den, &own.value))
        return time;
    return own;
}

/// Where every frame stands alone, its codec may not know of fields: photo-JPEG never does. The others say of
/// each frame what it is.
first_lines first_lines_of(const AVCodecParameters& codec)
{
    if (!is_intra_only(codec.codec_id))
        return first_lines::all;
    switch (codec.field_order) {
    case AV_FIELD_TT:
    case AV_FIELD_BT: // stored the other way round
        return first_lines::upper;
    case AV_FIELD_BB:
    case AV_FIELD_TB:
        return first_lines::lower;
    default:
        return first_lines::all;
    }
}

std::int64_t usual_duration_of(const AVStream& track)
{
    const AVRational rate = track.avg_frame_rate.num > 0 ? track.avg_frame_rate : track.r_frame_rate;
    return rate.num > 0 && rate.den > 0 ? av_rescale_q(1, av_inv_q(rate), track.time_base) : 0;
}

/// Whether all frames stored before a key frame are also shown before it, so that it can be placed by the
/// order of storage.
bool is_closed_at_key_frames(const AVCodecContext& decoder)
{
    return decoder.codec_id == AV_CODEC_ID_H264 || decoder.codec_id == AV_CODEC_ID_HEVC;
}

/// Whether a container stores with every packet when its frame is shown.
bool times_every_frame(const AVFormatContext& format)
{
    const std::string_view name = format.iformat->name;
    return name.starts_with("mov,") || name.starts_with("matroska,");
}

} // namespace

video_stream::video_stream(std::unique_ptr<media_input> input, format_context_ptr format,
                           const time_limit& limit)
    : limit_(limit), input_(std::move(input)), format_(std::move(format)), packet_(av_packet_alloc())
{
    if (!packet_)
        throw std::bad_alloc();
    choose_track();
}

std::unique_ptr<video_stream> video_stream::open(const media_file& file, const time_limit& limit)
{
    std::unique_ptr<video_stream> stream = open_as_stored(file, limit);
    if (!stream || !stream->has_video())
        return stream;
    if (stream->format_->iformat->name == std::string_view("mpegts"))
        stream->is_joined_ = is_joined_of_parts(file, limit);
    if (!stream->begins_without_time())
        return stream;
    const std::optional<std::int64_t> first_decoded = stream->first_decode_tick();
    const std::optional<std::int64_t> first_tick = stream->counted_first_tick();
    stream = open_as_stored(file, limit);
    if (stream)
        stream->begin_at(first_tick, first_decoded);
    return stream;
}

std::unique_ptr<video_stream> video_stream::open_as_stored(const media_file& file, const time_limit& limit)
{
    auto [input, format] = open_media_as(container_formats, file, limit);
    if (!format || avformat_find_stream_info(format.get(), nullptr) < 0)
        return nullptr;
    return std::unique_ptr<video_stream>(new video_stream(std::move(input), std::move(format), limit));
}

void video_stream::choose_track()
{
    for (unsigned i = 0; i < format_->nb_streams; ++i) {
        AVStream* track = format_->streams[i];
        const bool is_default = (track->disposition & AV_DISPOSITION_DEFAULT) != 0;
        const bool is_better =
            track_ == nullptr || (is_default && (track_->disposition & AV_DISPOSITION_DEFAULT) == 0);
        if (is_video(*track) && is_better)
            track_ = track;
    }
    if (track_ == nullptr)
        return;
    for (unsigned i = 0; i < format_->nb_streams; ++i) {
        AVStream* track = format_->streams[i];
        track->discard = track == track_ ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    first_tick_ = track_->start_time != AV_NOPTS_VALUE ? track_->start_time : 0;
    next_tick_ = first_tick_;
    usual_duration_ = usual_duration_of(*track_);
    display_ = {av_guess_sample_aspect_ratio(format_.get(), track_, nullptr), track_orientation(track_),
                first_lines_of(*track_->codecpar), holds_stills(track_->codecpar->codec_id)};
    if (const AVCodec* codec = avcodec_find_decoder(track_->codecpar->codec_id))
        open_decoder(*codec);
}

/// AVI and raw streams say of some frames only when to decode them.
bool video_stream::begins_without_time()
{
    packet_waits_ = read_packet();
    return packet_waits_ && packet_->pts == AV_NOPTS_VALUE;
}

std::optional<std::int64_t> video_stream::first_decode_tick() const
{
    return packet_->dts != AV_NOPTS_VALUE ? std::optional(packet_->dts) : std::nullopt;
}

void video_stream::begin_at(std::optional<std::int64_t> first_tick, std::optional<std::int64_t> first_decoded)
{
    first_tick_ = first_tick.value_or(first_tick_);
    next_tick_ = first_tick_;
    display_delay_ = first_tick_ - first_decoded.value_or(first_tick_);
}

/// The first frame's start, counted back from the first frame that has a time.
std::optional<std::int64_t> video_stream::counted_first_tick()
{
    constexpr int most_frames = 32;
    next_tick_ = 0;
    std::int64_t counted = 0;
    for (int i = 0; i < most_frames; ++i) {
        const timed_frame frame = next();
        if (!frame.pixels)
            break;
        if (frame.pixels->pts != AV_NOPTS_VALUE)
            return frame.shown_from - counted;
        counted += frame.duration;
    }
    return std::nullopt;
}

void video_stream::open_decoder(const AVCodec& codec)
{
    codec_context_ptr decoder(avcodec_alloc_context3(&codec));
    if (!decoder || avcodec_parameters_to_context(decoder.get(), track_->codecpar) < 0)
        return;
    decoder->pkt_timebase = track_->time_base;
    // Without this, a decoder that was started at an open group of pictures swallows the film's last frames.
    decoder->flags |= AV_CODEC_FLAG_OUTPUT_CORRUPT;
    decoder->max_pixels =
        codec.id == AV_CODEC_ID_JPEG2000 ? largest_wavelet_frame_pixels : largest_frame_pixels;
    const bool is_large = std::int64_t{decoder->width} * decoder->height > large_frame_pixels;
    decoder->thread_count =
        is_large ? 1 : std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, most_threads);
    // Frame threads fill up before the first frame comes out: no use where each frame stands alone.
    decoder->thread_type = is_intra_only(codec.id) ? FF_THREAD_SLICE : FF_THREAD_FRAME | FF_THREAD_SLICE;
    if (avcodec_open2(decoder.get(), &codec, nullptr) == 0)
        decoder_ = std::move(decoder);
}

bool video_stream::is_stored_in_order() const
{
    return is_intra_only(decoder_->codec_id) || decoder_->has_b_frames == 0;
}

std::optional<std::int64_t> video_stream::tick_of(media_time documented) const
{
    const media_time time = counted_time(documented, counted_rate(*track_));

    // A time falls short of its frame by as much as clocks round: half a tick of a fine clock, or a
    // hair's breadth of a frame where 29.97 and 30000/1001 meet.
    constexpr std::int64_t parts = 1024; // of a tick
    constexpr std::int64_t fine_clock_ticks = 8; // in a frame, at least
    const std::int64_t clock_rounding =
        usual_duration_ == 0 || usual_duration_ >= fine_clock_ticks ? parts / 2 : 0;
    const std::int64_t rate_rounding = av_rescale(usual_duration_, parts, 50);

    std::int64_t divisor = 0;
    if (time.timescale <= 0 || __builtin_mul_overflow(time.timescale, track_->time_base.num, &divisor))
        return std::nullopt;
    const std::int64_t fine =
        av_rescale_rnd(time.value, track_->time_base.den * parts, divisor, AV_ROUND_NEAR_INF);
    constexpr std::int64_t beyond = INT64_MAX / 4;
    if (fine < -beyond || fine > beyond)
        return std::nullopt;
    const std::int64_t tolerant = fine + std::min(std::max(clock_rounding, rate_rounding), beyond);
    const std::int64_t whole = tolerant >= 0 ? tolerant / parts : -((-tolerant + parts - 1) / parts);
    return first_tick_ + whole;
}

std::int64_t video_stream::ticks_of_seconds(int seconds) const
{
    return av_rescale_q(seconds, {1, 1}, track_->time_base);
}

std::optional<std::int64_t> video_stream::key_frame_at_or_before(std::int64_t tick) const
{
    const int position = av_index_search_timestamp(track_, tick, AVSEEK_FLAG_BACKWARD);
    const AVIndexEntry* entry = avformat_index_get_entry(track_, position);
    return entry != nullptr ? std::optional(entry->timestamp) : std::nullopt;
}

bool video_stream::index_reaches(std::int64_t tick) const
{
    const AVIndexEntry* last = avformat_index_get_entry(track_, avformat_index_get_entries_count(track_) - 1);
    return last != nullptr && last->timestamp >= tick;
}

bool video_stream::seek(std::int64_t goal, std::int64_t latest)
{
    if (is_joined_ || av_seek_frame(format_.get(), track_->index, goal, AVSEEK_FLAG_BACKWARD) < 0)
        return false;
    avcodec_flush_buffers(decoder_.get());
    packet_waits_ = false;
    next_tick_.reset();
    is_under_way_ = false;
    latest_start_ = INT64_MIN;
    do {
        if (!read_packet())
            return false;
    } while ((packet_->flags & AV_PKT_FLAG_KEY) == 0);
    packet_waits_ = true;

    if (packet_->pts == AV_NOPTS_VALUE && packet_->dts != AV_NOPTS_VALUE
        && is_closed_at_key_frames(*decoder_))
        next_tick_ = packet_->dts + display_delay_;
    const std::int64_t stamped = packet_->pts != AV_NOPTS_VALUE ? packet_->pts : packet_->dts;
    decodable_from_ = next_tick_.value_or(stamped);
    return decodable_from_ != AV_NOPTS_VALUE && decodable_from_ <= latest;
}

bool video_stream::read_packet()
{
    if (std::exchange(packet_waits_, false))
        return true;
    do {
        av_packet_unref(packet_.get());
        if (limit_.is_over() || av_read_frame(format_.get(), packet_.get()) < 0)
            return false;
    } while (packet_->stream_index != track_->index);
    return true;
}

void video_stream::need_only(std::vector<std::int64_t> ticks)
{
    if (times_every_frame(*format_))
        needed_ = std::move(ticks);
}

void video_stream::feed_decoder()
{
    if (!read_packet()) {
        avcodec_send_packet(decoder_.get(), nullptr);
        return;
    }
    decoder_->skip_frame = can_leave_out(*packet_) ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    latest_start_ = std::max(latest_start_, packet_->pts);
    // Damaged packets are refused here; the next ones may be whole.
    avcodec_send_packet(decoder_.get(), packet_.get());
}

/// A frame that is shown before another one is stored after it: it has left the display by then.
bool video_stream::can_leave_out(const AVPacket& packet) const
{
    if (!needed_ || packet.pts == AV_NOPTS_VALUE || packet.pts >= latest_start_)
        return false;
    const auto needed = std::lower_bound(needed_->begin(), needed_->end(), packet.pts);
    return needed == needed_->end() || *needed >= latest_start_;
}

/// Without a time stamp a frame follows on the one before it, and so does the first one of a further part.
std::optional<std::int64_t> video_stream::start_of(const AVFrame& frame)
{
    if (frame.pts == AV_NOPTS_VALUE)
        return next_tick_;
    const std::int64_t start = frame.pts + part_delay_;
    if (!is_joined_ || !next_tick_ || std::abs(start - *next_tick_) < ticks_of_seconds(1))
        return start;
    part_delay_ += *next_tick_ - start;
    return next_tick_;
}

timed_frame video_stream::next()
{
    frame_ptr pixels(av_frame_alloc());
    while (pixels && !limit_.is_over()) {
        const int received = avcodec_receive_frame(decoder_.get(), pixels.get());
        if (received == AVERROR_EOF)
            break;
        if (received != 0) {
            feed_decoder();
            continue;
        }
        const bool is_whole = (pixels->flags & AV_FRAME_FLAG_CORRUPT) == 0;
        const std::optional<std::int64_t> start = start_of(*pixels);
        if (!start || *start < decodable_from_ || !(is_whole || is_under_way_))
            continue;
        is_under_way_ = true;
        const std::int64_t duration = pixels->pkt_duration > 0 ? pixels->pkt_duration : usual_duration_;
        next_tick_ = *start + duration;
        return {std::move(pixels), *start, duration};
    }
    return {};
}

} // namespace tallyframe
