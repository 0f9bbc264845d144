// SPDX-License-Identifier: MIT
// Any bytes as the URL of a media file.
#include "fuzz/promise.h"
#include "media/file_urls.h"
#include "workbook/records/unicode.h"

#include <cstdint>
#include <string>

namespace tallyframe::fuzz {

namespace {

std::string url_of(const std::string& path)
{
    constexpr const char* digits = "0123456789ABCDEF";
    std::string url = "file://localhost";
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '/')
            url += '/';
        else
            url += {'%', digits[byte >> 4], digits[byte & 15]};
    }
    return url;
}

bool has_dot_segment(const std::string& path)
{
    const std::string segments = path + '/';
    return segments.find("/./") != std::string::npos || segments.find("/../") != std::string::npos;
}

void read(std::string_view url)
{
    const std::optional<std::string> path = path_of_url(url);
    if (!path)
        return;
    promise(xls::valid_utf8(*path, path->size()).utf8 == *path, "a path is UTF-8");
    promise(path->find('\0') == std::string::npos, "a path has no NUL");

    const std::string_view name = last_path_component(*path);
    promise(name == "/" || name.find('/') == std::string_view::npos || name.find_first_not_of('/') == 0,
            "the last component has no slash in front");

    if (path->starts_with('/') && path->find("///Volumes/") == std::string::npos) {
        promise(!has_dot_segment(*path), "a path from the root has no dot segments");
        promise(path_of_url(url_of(*path)) == path, "the URL of a path gives the path");
    }
}

} // namespace

} // namespace tallyframe::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    tallyframe::fuzz::read({reinterpret_cast<const char*>(data), size});
    return 0;
}
