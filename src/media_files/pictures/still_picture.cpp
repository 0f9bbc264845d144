// SPDX-License-Identifier: MIT
#include "media_files/pictures/still_picture.h"

#include "media_files/pictures/displayed_picture.h"
#include "media_files/pictures/ffmpeg_handles.h"
#include "media_files/pictures/tiff_tags.h"

extern "C" {
#include <libavutil/log.h>
#include <libavutil/opt.h>
}

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace tallyframe {

namespace {

using namespace std::string_view_literals;

/// Stills are read whole into memory; layered pictures of half a gigabyte exist, larger ones do not pay.
constexpr std::uint64_t largest_file = 512U << 20U;

struct still_kind {
    AVCodecID codec;
    std::string_view mark;
    std::size_t at = 0; ///< where in the file the mark stands
};

constexpr std::array<still_kind, 21> kinds_by_mark = {{
    {AV_CODEC_ID_MJPEG, "\xFF\xD8\xFF"sv},
    {AV_CODEC_ID_PNG, "\x89PNG\r\n\x1A\n"sv},
    {AV_CODEC_ID_TIFF, "II*\0"sv},
    {AV_CODEC_ID_TIFF, "MM\0*"sv},
    {AV_CODEC_ID_TIFF, "II+\0"sv}, // of over 4 GB: none is read
    {AV_CODEC_ID_TIFF, "MM\0+"sv},
    {AV_CODEC_ID_JPEG2000, "\0\0\0\x0CjP  \r\n\x87\n"sv},
    {AV_CODEC_ID_JPEG2000, "\xFF\x4F\xFF\x51"sv},
    {AV_CODEC_ID_JPEGXL, "\0\0\0\x0CJXL \r\n\x87\n"sv},
    {AV_CODEC_ID_JPEGXL, "\xFF\x0A"sv},
    {AV_CODEC_ID_EXR, "\x76\x2F\x31\x01"sv},
    {AV_CODEC_ID_DPX, "SDPX"sv},
    {AV_CODEC_ID_DPX, "XPDS"sv},
    {AV_CODEC_ID_PSD, "8BPS"sv},
    {AV_CODEC_ID_GIF, "GIF8"sv},
    {AV_CODEC_ID_WEBP, "WEBP"sv, 8},
    {AV_CODEC_ID_SGI, "\x01\xDA"sv},
    {AV_CODEC_ID_PPM, "P6"sv},
    {AV_CODEC_ID_PGM, "P5"sv},
    {AV_CODEC_ID_BMP, "BM"sv},
    {AV_CODEC_ID_QDRAW, "\x00\x11\x02\xFF"sv, 522},
}};

struct still_extension {
    AVCodecID codec;
    std::string_view extension;
};

constexpr std::array<still_extension, 5> kinds_by_extension = {{
    {AV_CODEC_ID_TARGA, ".tga"},
    {AV_CODEC_ID_TARGA, ".targa"},
    {AV_CODEC_ID_PCX, ".pcx"},
    {AV_CODEC_ID_QDRAW, ".pct"},
    {AV_CODEC_ID_QDRAW, ".pict"},
}};

std::string first_bytes(const media_file& file)
{
    std::array<std::uint8_t, 532> bytes = {};
    const std::size_t count = file.read(0, bytes);
    return {bytes.begin(), bytes.begin() + count};
}

std::string lower_case_extension(const media_file& file)
{
    std::string extension = file.name().extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return extension;
}

AVCodecID codec_of(const media_file& file)
{
    const std::string bytes = first_bytes(file);
    for (const still_kind& kind : kinds_by_mark) {
        if (bytes.size() > kind.at && std::string_view(bytes).substr(kind.at).starts_with(kind.mark))
            return kind.codec;
    }
    const std::string extension = lower_case_extension(file);
    for (const still_extension& kind : kinds_by_extension) {
        if (extension == kind.extension)
            return kind.codec;
    }
    return AV_CODEC_ID_NONE;
}

packet_ptr whole_file(const media_file& file)
{
    packet_ptr packet(av_packet_alloc());
    if (!file.is_open() || file.size() > largest_file || !packet
        || av_new_packet(packet.get(), static_cast<int>(file.size())) < 0)
        return nullptr;
    const std::size_t count = file.read(0, {packet->data, static_cast<std::size_t>(packet->size)});
    av_shrink_packet(packet.get(), static_cast<int>(count));
    return packet;
}

frame_ptr decoded(AVCodecID id, const AVPacket& packet)
{
    const AVCodec* codec = avcodec_find_decoder(id);
    codec_context_ptr decoder(codec != nullptr ? avcodec_alloc_context3(codec) : nullptr);
    if (!decoder)
        return nullptr;
    decoder->max_pixels = largest_frame_pixels;
    decoder->thread_count = 1;
    if (id == AV_CODEC_ID_EXR) // its numbers are amounts of light, not of brightness
        av_opt_set(decoder->priv_data, "apply_trc", "iec61966_2_1", 0);
    frame_ptr frame(av_frame_alloc());
    const bool is_decoded = frame && avcodec_open2(decoder.get(), codec, nullptr) == 0
        && avcodec_send_packet(decoder.get(), &packet) == 0
        && avcodec_send_packet(decoder.get(), nullptr) == 0
        && avcodec_receive_frame(decoder.get(), frame.get()) == 0;
    return is_decoded ? std::move(frame) : nullptr;
}

} // namespace

bool is_still_picture(const media_file& file)
{
    return codec_of(file) != AV_CODEC_ID_NONE;
}

image_data read_still_picture(const media_file& file)
{
    av_log_set_level(AV_LOG_QUIET);
    const packet_ptr packet = whole_file(file);
    if (!packet)
        return nullptr;
    const AVCodecID codec = codec_of(file);
    track_display display;
    display.gray_is_full_range = true;
    if (codec == AV_CODEC_ID_TIFF) {
        const tiff_tags tags = tiff_tags_of({packet->data, static_cast<std::size_t>(packet->size)});
        if (tags.is_tiled || tags.holds_jpeg) // the decoder would make black of it
            return nullptr;
        display.turned = tags.turned;
    }
    const frame_ptr frame = decoded(codec, *packet);
    if (!frame)
        return nullptr;
    const picture_size size = size_within(displayed_size(*frame, display), largest_thumbnail_side);
    std::optional<bitmap> picture = displayed_picture(*frame, display, size);
    return picture ? std::make_shared<const bitmap>(std::move(*picture)) : nullptr;
}

} // namespace tallyframe
