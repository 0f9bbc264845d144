// SPDX-License-Identifier: MIT
#include "cli/report_media.h"

#include "platform/media_tools/tag_readers.h"
#include "platform/media_tools/thumbnailer_module.h"

#include <fmt/ostream.h>

namespace tallyframe::cli {

report_media::report_media(const report_request& request, diagnostics& out)
    : wants_pictures_(request.options.inpoint_thumbnail_jpegs),
      keeps_pictures_(request.options.keep_thumbnails),
      locator_(request.media_map, request.media_search, out), tags_(tag_reader_of_this_system()),
      pictures_(wants_pictures_ ? load_thumbnailer(out) : nullptr)
{
}

std::optional<thumbnail_folder> report_media::folder_for(const std::filesystem::path& workbook) const
{
    if (!wants_pictures_)
        return std::nullopt;
    return keeps_pictures_ ? thumbnail_folder::beside(workbook) : thumbnail_folder::temporary();
}

media_services report_media::services(std::optional<thumbnail_folder>& folder)
{
    return {locator_, *tags_, pictures_.get(), folder ? &*folder : nullptr};
}

void printing_workspace::open_folder(const std::filesystem::path& folder)
{
    fmt::print(err_, "The thumbnails are in {}\n", folder.string());
}

} // namespace tallyframe::cli
