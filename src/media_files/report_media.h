// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/helper_media_probe.h"
#include "media_files/helper_questions.h"
#include "media_files/helper_tag_reader.h"
#include "media_files/mapped_media.h"
#include "media_files/mdls_tag_reader.h"
#include "media_files/thumbnail_folder.h"
#include "platform/media_services.h"
#include "run/account.h"
#include "run/diagnostics.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace tallyframe {

/// Where a report finds its media, and whether it makes pictures of it.
struct media_choice {
    bool wants_pictures = false;
    bool keeps_pictures = false; ///< as files beside the workbook
    std::vector<media_mapping> map;
    std::vector<std::filesystem::path> search;
    bool checks_files = false; ///< opens them to see what they are
    bool uses_store = true; ///< pictures are kept from one report to the next, in the user's cache folder
    std::uint64_t most_memory = 0; ///< bytes for all that reads media; 0 for a quarter of the machine's
};

/// What a host looks at media files with, for one report or several of one document.
class report_media {
public:
    /// `out` and `display` must outlive it. Throws failure when pictures are wanted and cannot be made here.
    report_media(const media_choice& choice, diagnostics& out, progress& display);

    /// The folder for the pictures of the report at `workbook`; nothing when none are wanted. Its owner's end
    /// is its own, unless the pictures are kept.
    std::optional<thumbnail_folder> folder_for(const std::filesystem::path& workbook) const;

    /// `folder`: what folder_for gave.
    media_services services(std::optional<thumbnail_folder>& folder);

    /// What was lost on the way to the media, in all reports so far: folders that could not be searched,
    /// mappings without use, files that had to be guessed, files whose tags could not be read.
    account losses() const;

private:
    bool wants_pictures_;
    bool keeps_pictures_;
    bool is_asked_for_; ///< whoever wants no pictures and names no folders may well have no media
    helper_questions questions_; ///< about files, of one helper that is started for the first
    helper_media_probe probe_;
    mapped_media locator_;
    std::optional<mdls_tag_reader> system_tags_; ///< where the system has an index of files
    helper_tag_reader tags_in_files_;
    remembered_tags tags_;
    std::unique_ptr<thumbnailer> pictures_;
};

} // namespace tallyframe
