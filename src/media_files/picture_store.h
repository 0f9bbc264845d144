// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/picture_key.h"
#include "platform/thumbnailer.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>

namespace tallyframe {

/// The folder for what this user's programs keep to save work; nothing when there is none.
std::optional<std::filesystem::path> user_cache_folder();

/// Pictures on the user's disk, from one run to the next. A picture is known by its file (path, size and
/// time), its moment and width, and by what made it.
///
/// It saves work and is nobody's duty: what cannot be read, written or understood is not there. Runs may use
/// the same folder at once. What was not used for longest goes when the store passes its limit.
class picture_store {
public:
    /// `maker`: the program whose pictures these are; those of another one, or of an older one, are not
    /// found.
    picture_store(std::filesystem::path folder, const std::filesystem::path& maker,
                  std::uint64_t most_bytes = 1ULL << 30U);
    picture_store(const picture_store&) = delete;
    picture_store& operator=(const picture_store&) = delete;

    /// Brings the store below its limit.
    ~picture_store();

    std::optional<jpeg_picture> find(const picture_key& key);
    bool contains(const picture_key& key);
    void keep(const picture_key& key, const jpeg_picture& picture);

private:
    struct entry {
        std::filesystem::path place;
        std::string description; ///< what stands in front of the picture, and tells it from all others
    };

    /// Nothing when there is no such file.
    std::optional<entry> entry_of(const picture_key& key);
    void trim(const std::filesystem::path& shelf) const;

    std::filesystem::path folder_;
    std::string maker_;
    std::uint64_t most_bytes_;
    std::unordered_map<std::string, std::string> identities_; ///< of media files, by their paths
    std::set<std::filesystem::path> changed_shelves_;
};

} // namespace tallyframe
