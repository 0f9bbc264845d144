// SPDX-License-Identifier: MIT
#pragma once

#include "cli/arguments.h"
#include "platform/diagnostics.h"
#include "platform/media_services.h"
#include "platform/workspace.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>

namespace tallyframe::cli {

/// What a run of the command line looks at media files with, as its flags say.
class report_media {
public:
    report_media(const report_request& request, diagnostics& out);

    /// The folder for the pictures of the report at `workbook`; nothing when none are wanted. Its owner's end
    /// is its own, unless the pictures are kept.
    std::optional<thumbnail_folder> folder_for(const std::filesystem::path& workbook) const;

    /// `folder`: what folder_for gave.
    media_services services(std::optional<thumbnail_folder>& folder);

private:
    bool wants_pictures_;
    bool keeps_pictures_;
    mapped_media locator_;
    std::unique_ptr<audio_tag_reader> tags_;
    std::unique_ptr<thumbnailer> pictures_;
};

/// A command line opens no folders: it says where they are.
class printing_workspace final : public workspace {
public:
    explicit printing_workspace(std::ostream& err) : err_(err) { }
    void open_folder(const std::filesystem::path& folder) override;

private:
    std::ostream& err_;
};

} // namespace tallyframe::cli
