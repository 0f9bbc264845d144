// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/file_index.h"
#include "media_files/spelled_paths.h"
#include "platform/media_locator.h"
#include "platform/media_probe.h"
#include "run/account.h"
#include "run/diagnostics.h"
#include "run/progress.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// Media that has moved: paths below `from` are now below `to`. Both may be written as other systems do.
struct media_mapping {
    std::string from;
    std::string to;
};

/// Finds media under mappings of folders, where the document says, and in folders to search, in this order.
/// Names match in any form of accents and, where nothing matches so, in any letter case. What is found
/// elsewhere than the document says is logged. Each path is looked for once.
///
/// Of several mappings that fit, the one with the longest `from` is tried first. In the folders to search
/// (and all below them) a file is known by its name. Of several with one name it is one with the duration,
/// rate and frame size that the document gives, as far as `probe` can tell; of those the one below as many of
/// the same parent folders as possible. Where that leaves several, it is the first, in the order of the
/// folders and of their paths, and the account names them.
///
/// The folders are read when the first path is not where it should be. As that may take minutes, `display`
/// tells the folder meanwhile and may stop the run.
class mapped_media final : public media_locator {
public:
    mapped_media(std::vector<media_mapping> mappings, std::vector<std::filesystem::path> search_folders,
                 diagnostics& out, progress& display, media_probe* probe = nullptr);

    void expect(std::span<const documented_media> media) override;
    std::optional<std::filesystem::path> locate(const std::string& path) override;

    /// So far: folders to search that could not be read, mappings without use, and files that had to be
    /// guessed.
    account losses() const;

private:
    struct mapping {
        media_mapping given;
        std::string from;
        std::string caseless_from;
        std::size_t depth = 0; ///< folders in `from`
        std::string to;
        bool leads_somewhere = false; ///< `to` is a folder
        bool fits_a_file = false; ///< of those that the document names
    };

    /// How well a file fits what the document says of it.
    enum likeness_of_file : std::size_t { contradicts, unknown, agrees };
    struct likely_files {
        likeness_of_file likeness;
        file_index::group files;
    };

    std::optional<std::filesystem::path> find(const std::string& path);
    std::optional<std::filesystem::path> find_mapped(const std::string& path);
    std::optional<std::filesystem::path> find_by_name(const std::string& path);
    std::vector<mapping*> fitting_mappings(const std::string& path);
    std::vector<file_index::group> usable_files_named_as(const std::string& path);
    likely_files likeliest(const std::vector<file_index::group>& groups, const media_facts* said);
    likeness_of_file likeness(const std::filesystem::path& file, const media_facts& said);
    bool is_usable(const std::filesystem::path& file);
    void tell_of_guess(const std::string& path, const file_index::group& files);

    std::vector<mapping> mappings_;
    std::vector<std::filesystem::path> search_folders_;
    diagnostics& out_;
    progress& display_;
    media_probe* probe_;
    spelled_paths disk_;
    std::unordered_map<std::string, media_facts> said_; ///< by the document
    std::unordered_map<std::string, std::optional<media_facts>>
        seen_; ///< in files, as far as they were asked
    std::unordered_map<std::string, std::optional<std::filesystem::path>> found_;
    std::optional<file_index> searched_;
    std::optional<std::filesystem::path> unreadable_; ///< what a search has met that may not be read
    bool is_told_of_media_ = false;
    account lost_;
};

} // namespace tallyframe
