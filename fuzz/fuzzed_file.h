// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tallyframe::fuzz {

/// A file in memory. Its first byte chooses its name among `names`; the rest is its content.
inline media_file file_of(const std::uint8_t* data, std::size_t size, std::span<const char* const> names)
{
    const std::string name = names[size != 0 ? data[0] % names.size() : 0];
    const std::size_t content_size = size != 0 ? size - 1 : 0;
    file_descriptor file(memfd_create("fuzzed", MFD_CLOEXEC));
    if (content_size != 0 && write(file.number(), data + 1, content_size) < 0)
        file.close();
    return {name, std::move(file), content_size};
}

} // namespace tallyframe::fuzz
