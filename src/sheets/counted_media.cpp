// SPDX-License-Identifier: MIT
#include "sheets/counted_media.h"

namespace tallyframe {

std::optional<std::filesystem::path> counted_media::locate(const std::string& path)
{
    std::optional<std::filesystem::path> file = locator_.locate(path);
    const bool names_a_file = !path.empty();
    if (!file && names_a_file && missing_.insert(path).second)
        lost_.add(loss_kind::missing_media, 1, path);
    return file;
}

} // namespace tallyframe
