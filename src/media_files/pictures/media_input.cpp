// SPDX-License-Identifier: MIT
#include "media_files/pictures/media_input.h"

#include <cerrno>
#include <cstdio>
#include <new>
#include <utility>

namespace tallyframe {

namespace {

/// What the library itself takes for files.
constexpr int buffer_size = 32'768;

} // namespace

media_input::media_input(media_file file, const time_limit& limit) : file_(std::move(file)), limit_(limit)
{
    auto* buffer = static_cast<unsigned char*>(av_malloc(buffer_size));
    if (buffer != nullptr)
        context_.reset(avio_alloc_context(buffer, buffer_size, 0, this, read, nullptr, seek));
    if (context_)
        return;
    av_free(buffer);
    throw std::bad_alloc();
}

int media_input::read(void* input, std::uint8_t* into, int size)
{
    auto& self = *static_cast<media_input*>(input);
    if (self.limit_.is_over())
        return AVERROR_EXIT;
    const std::size_t count =
        self.file_.read(static_cast<std::uint64_t>(self.at_), {into, static_cast<std::size_t>(size)});
    self.at_ += static_cast<std::int64_t>(count);
    return count != 0 ? static_cast<int>(count) : AVERROR_EOF;
}

std::int64_t media_input::seek(void* input, std::int64_t to, int whence)
{
    auto& self = *static_cast<media_input*>(input);
    const auto size = static_cast<std::int64_t>(self.file_.size());
    switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return size;
    case SEEK_SET:
        break;
    case SEEK_CUR:
        to += self.at_;
        break;
    case SEEK_END:
        to += size;
        break;
    default:
        return AVERROR(EINVAL);
    }
    if (to < 0)
        return AVERROR(EINVAL);
    self.at_ = to;
    return to;
}

} // namespace tallyframe
