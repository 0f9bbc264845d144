// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/kept_thumbnails.h"

#include "media_files/thumbnail_folder.h"
#include "run/failures.h"

#include <optional>
#include <set>
#include <string>
#include <system_error>

namespace tallyframe {

namespace {

namespace fs = std::filesystem;

/// The path of a file without links on the way to it; empty when there is no such file.
fs::path real_path(const fs::path& file)
{
    std::error_code error;
    return fs::canonical(file, error);
}

/// The media files of all clips that were analysed, of the unticked tracks too.
std::set<fs::path> media_files(const analysis_result& analysis, media_locator& locator)
{
    std::set<fs::path> files;
    for (const auto* clips : {&analysis.video_clip_data_array, &analysis.audio_clip_data_array}) {
        for (const clip_record& clip : *clips) {
            const auto file = clip.path ? locator.locate(*clip.path) : std::nullopt;
            if (file)
                files.insert(real_path(*file));
        }
    }
    return files;
}

} // namespace

illustrated_report write_with_thumbnails(const file_format& format, writing what,
                                         const analysis_result& analysis, const media_services& media)
{
    std::optional<std::set<fs::path>> files; // wanted only where there are pictures of an earlier report
    const auto is_media = [&](const fs::path& file) {
        if (!files)
            files = media_files(analysis, media.locator);
        return files->contains(real_path(file));
    };
    illustrated_report made;
    what.before_it_appears = [&] { made.pictures = media.folder->publish(is_media); };
    try {
        made.lost = format.write(what);
    } catch (const failure& error) {
        const std::string remains = media.folder->take_back();
        if (remains.empty())
            throw;
        throw failure(error.what() + remains);
    }
    return made;
}

} // namespace tallyframe
