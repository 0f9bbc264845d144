// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"
#include "media_files/pictures/ffmpeg_handles.h"
#include "media_files/pictures/time_limit.h"

#include <cstdint>
#include <memory>

namespace tallyframe {

/// How the libraries read a media file: through its descriptor, so that nothing has to be opened for them.
class media_input {
public:
    /// `limit`: reading ends when it is over. Must outlive this.
    media_input(media_file file, const time_limit& limit);
    media_input(const media_input&) = delete;
    media_input& operator=(const media_input&) = delete;

    AVIOContext* context() const { return context_.get(); }

private:
    struct context_deleter {
        void operator()(AVIOContext* context) const
        {
            av_freep(static_cast<void*>(&context->buffer));
            avio_context_free(&context);
        }
    };

    static int read(void* input, std::uint8_t* into, int size);
    static std::int64_t seek(void* input, std::int64_t to, int whence);

    media_file file_;
    const time_limit& limit_;
    std::int64_t at_ = 0;
    std::unique_ptr<AVIOContext, context_deleter> context_;
};

} // namespace tallyframe
