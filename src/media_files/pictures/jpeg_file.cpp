// SPDX-License-Identifier: MIT
#include "media_files/pictures/jpeg_file.h"

#include <turbojpeg.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace tallyframe {

namespace {

struct compressor_deleter {
    void operator()(void* compressor) const { tjDestroy(compressor); }
};

struct buffer_deleter {
    void operator()(unsigned char* buffer) const { tjFree(buffer); }
};

} // namespace

std::vector<std::uint8_t> jpeg_file(const bitmap& picture, int quality)
{
    const std::unique_ptr<void, compressor_deleter> compressor(tjInitCompress());
    if (!compressor)
        throw std::bad_alloc();
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    const int status = tjCompress2(compressor.get(), picture.rgb.data(), picture.width, 0, picture.height,
                                   TJPF_RGB, &bytes, &size, TJSAMP_420, quality, TJFLAG_ACCURATEDCT);
    const std::unique_ptr<unsigned char, buffer_deleter> owned(bytes);
    if (status != 0)
        throw std::runtime_error(std::string("the JPEG encoder failed: ") + tjGetErrorStr2(compressor.get()));
    return {bytes, bytes + size};
}

} // namespace tallyframe
