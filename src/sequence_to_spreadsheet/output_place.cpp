// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/output_place.h"

#include "media_files/thumbnail_folder.h"

#include <system_error>

namespace tallyframe {

namespace fs = std::filesystem;

bool replaces_document(const fs::path& workbook, const fs::path& document)
{
    std::error_code not_there;
    return fs::equivalent(workbook, document, not_there);
}

bool keeps_thumbnails_around_document(const fs::path& workbook, const fs::path& document)
{
    std::error_code not_there;
    const fs::path place = place_of_thumbnails(workbook);
    for (const fs::path& file : {fs::absolute(document, not_there), fs::canonical(document, not_there)}) {
        if (fs::equivalent(file.parent_path(), place, not_there))
            return true;
    }
    return false;
}

} // namespace tallyframe
