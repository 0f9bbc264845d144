// SPDX-License-Identifier: MIT
#include "media_files/pictures/read_media_facts.h"

#include "media_files/pictures/container_formats.h"
#include "media_files/pictures/displayed_picture.h"
#include "media_files/pictures/opened_media.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace tallyframe {

namespace {

std::string_view text_of(const AVDictionary* texts, const char* name)
{
    const AVDictionaryEntry* entry = av_dict_get(texts, name, nullptr, 0);
    return entry != nullptr ? std::string_view(entry->value) : std::string_view();
}

std::optional<double> rate_of(const AVStream& track)
{
    const AVRational rate = track.avg_frame_rate.num > 0 ? track.avg_frame_rate : track.r_frame_rate;
    return rate.num > 0 && rate.den > 0 ? std::optional(av_q2d(rate)) : std::nullopt;
}

pixel_size frame_size_of(const AVStream& track)
{
    pixel_size size{track.codecpar->width, track.codecpar->height};
    std::size_t bytes = 0;
    const std::uint8_t* matrix = av_stream_get_side_data(&track, AV_PKT_DATA_DISPLAYMATRIX, &bytes);
    if (matrix != nullptr && bytes >= 9 * sizeof(std::int32_t)
        && orientation_of(reinterpret_cast<const std::int32_t*>(matrix)).swaps_axes)
        std::swap(size.width, size.height);
    return size;
}

/// The pictures' duration: sound often goes on for a moment.
std::optional<double> duration_of(const AVFormatContext& format, const AVStream* pictures)
{
    if (pictures != nullptr && pictures->duration > 0)
        return static_cast<double>(pictures->duration) * av_q2d(pictures->time_base);
    return format.duration > 0 ? std::optional(static_cast<double>(format.duration) / AV_TIME_BASE)
                               : std::nullopt;
}

/// A timecode stands with the pictures, on a track of its own, or with the whole file.
std::string start_timecode_of(const AVFormatContext& format, std::span<AVStream* const> tracks)
{
    for (const AVStream* track : tracks) {
        if (const std::string_view text = text_of(track->metadata, "timecode"); !text.empty())
            return std::string(text);
    }
    return std::string(text_of(format.metadata, "timecode"));
}

/// Sound recorders count the samples since midnight.
std::optional<double> start_seconds_of(const AVFormatContext& format, const AVStream* sound)
{
    const std::string_view text = text_of(format.metadata, "time_reference");
    std::int64_t samples = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), samples);
    if (sound == nullptr || text.empty() || error != std::errc() || sound->codecpar->sample_rate <= 0)
        return std::nullopt;
    return static_cast<double>(samples) / sound->codecpar->sample_rate;
}

bool is_of_pictures(const AVStream& track)
{
    constexpr int not_moving = AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS;
    return track.codecpar->codec_type == AVMEDIA_TYPE_VIDEO && (track.disposition & not_moving) == 0;
}

} // namespace

std::optional<media_facts> read_media_facts(const media_file& file, time_limit limit)
{
    limit.start();
    const std::string formats = std::string(container_formats) + "," + still_formats;
    const auto [input, format] = open_media_as(formats.c_str(), file, limit);
    if (!format || avformat_find_stream_info(format.get(), nullptr) < 0 || format->nb_streams == 0)
        return std::nullopt;

    const AVStream* pictures = nullptr;
    const AVStream* sound = nullptr;
    int channels = 0;
    const std::span<AVStream* const> tracks(format->streams, format->nb_streams);
    for (const AVStream* track : tracks) {
        if (pictures == nullptr && is_of_pictures(*track))
            pictures = track;
        if (track->codecpar->codec_type != AVMEDIA_TYPE_AUDIO)
            continue;
        if (sound == nullptr)
            sound = track;
        channels += std::clamp(track->codecpar->ch_layout.nb_channels, 0, 1024);
    }

    media_facts facts;
    const bool is_still = std::string_view(format->iformat->name).ends_with("_pipe");
    if (pictures != nullptr)
        facts.frame_size = frame_size_of(*pictures);
    if (is_still)
        return facts;
    if (pictures != nullptr)
        facts.frames_per_second = rate_of(*pictures);
    facts.duration = duration_of(*format, pictures);
    facts.start_timecode = start_timecode_of(*format, tracks);
    facts.start_seconds = start_seconds_of(*format, sound);
    facts.audio_channels = channels;
    return facts;
}

} // namespace tallyframe
