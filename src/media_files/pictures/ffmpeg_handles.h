// SPDX-License-Identifier: MIT
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <memory>

namespace tallyframe {

/// Owners of the libraries' objects: each deleter is the call that belongs to its kind.
template <auto Free>
struct ffmpeg_deleter {
    template <class Object>
    void operator()(Object* object) const
    {
        Free(&object);
    }
};

struct scaler_deleter {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

using format_context_ptr = std::unique_ptr<AVFormatContext, ffmpeg_deleter<avformat_close_input>>;
using codec_context_ptr = std::unique_ptr<AVCodecContext, ffmpeg_deleter<avcodec_free_context>>;
using frame_ptr = std::unique_ptr<AVFrame, ffmpeg_deleter<av_frame_free>>;
using packet_ptr = std::unique_ptr<AVPacket, ffmpeg_deleter<av_packet_free>>;
using scaler_ptr = std::unique_ptr<SwsContext, scaler_deleter>;

/// A frame of more pixels is refused before memory is taken for it.
inline constexpr std::int64_t largest_frame_pixels = 100'000'000;

} // namespace tallyframe
