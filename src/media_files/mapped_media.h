// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media_locator.h"
#include "run/account.h"
#include "run/diagnostics.h"
#include "run/progress.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <system_error>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// Media that has moved: paths below `from` are now below `to`.
struct media_mapping {
    std::string from;
    std::string to;
};

/// Finds media under mappings of folders, where the document says, and in folders to search, in this order.
///
/// Of several mappings that fit, the one with the longest `from` is tried first. In the folders to search
/// (and all below them) a file is known by its name; of several with one name it is the one below as many of
/// the same parent folders as possible, and of those the first, in the order of the folders and of their
/// paths. What is found elsewhere than the document says is logged. Each path is looked for once.
///
/// The folders are read when the first path is not where it should be. As that may take minutes, `display`
/// tells the folder meanwhile and may stop the run. A folder that cannot be read costs what is in it alone.
class mapped_media final : public media_locator {
public:
    mapped_media(std::vector<media_mapping> mappings, std::vector<std::filesystem::path> search_folders,
                 diagnostics& out, progress& display);

    std::optional<std::filesystem::path> locate(const std::string& path) override;

    /// The folders to search, and those below them, that could not be read so far.
    const account& losses() const { return lost_; }

private:
    using unread_folders = std::map<std::filesystem::path, std::error_code>;

    std::optional<std::filesystem::path> find(const std::string& path);
    std::optional<std::filesystem::path> find_mapped(const std::string& path) const;
    std::optional<std::filesystem::path> find_by_name(const std::string& path);
    void list_search_folders();
    void list_files(const std::filesystem::path& root, unread_folders& unread);

    std::vector<media_mapping> mappings_;
    std::vector<std::filesystem::path> search_folders_;
    diagnostics& out_;
    progress& display_;
    std::unordered_map<std::string, std::optional<std::filesystem::path>> found_;
    bool is_listed_ = false;
    std::unordered_map<std::string, std::vector<std::filesystem::path>> files_by_name_;
    account lost_;
};

} // namespace tallyframe
