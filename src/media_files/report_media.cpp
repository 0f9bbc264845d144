// SPDX-License-Identifier: MIT
#include "media_files/report_media.h"

#include "media_files/thumbnailer_module.h"

namespace tallyframe {

report_media::report_media(const media_choice& choice, diagnostics& out, progress& display)
    : wants_pictures_(choice.wants_pictures), keeps_pictures_(choice.keeps_pictures),
      is_asked_for_(choice.wants_pictures || !choice.map.empty() || !choice.search.empty()
                    || choice.checks_files),
      locator_(choice.map, choice.search, out, display, &probe_), tags_(tag_reader_of_this_system()),
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
    return {locator_, tags_, pictures_.get(), folder ? &*folder : nullptr, is_asked_for_, &probe_};
}

} // namespace tallyframe
