// SPDX-License-Identifier: MIT
#include "media_files/pictures/opened_media.h"

extern "C" {
#include <libavutil/log.h>
}

#include <cerrno>
#include <new>

namespace tallyframe {

namespace {

int stop_when_over(void* limit)
{
    return static_cast<const time_limit*>(limit)->is_over() ? 1 : 0;
}

int open_nothing_else(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**)
{
    return AVERROR(EACCES);
}

} // namespace

opened_media open_media_as(const char* formats, const media_file& file, const time_limit& limit)
{
    av_log_set_level(AV_LOG_QUIET); // what a file suffers from is not for the user's terminal
    if (!file.is_open())
        return {};
    auto input = std::make_unique<media_input>(file, limit);
    AVFormatContext* format = avformat_alloc_context();
    if (format == nullptr)
        throw std::bad_alloc();
    format->pb = input->context();
    format->io_open = open_nothing_else;
    // Handed back to stop_when_over, which only reads it.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
    format->interrupt_callback = {stop_when_over, const_cast<time_limit*>(&limit)};
    AVDictionary* options = nullptr;
    const bool is_confined = av_dict_set(&options, "format_whitelist", formats, 0) >= 0;
    if (is_confined) // null when it fails; the name tells the kinds apart that look alike
        avformat_open_input(&format, file.name().filename().c_str(), nullptr, &options);
    av_dict_free(&options);
    opened_media opened{std::move(input), format_context_ptr(format)};
    if (!is_confined)
        throw std::bad_alloc();
    return opened;
}

} // namespace tallyframe
