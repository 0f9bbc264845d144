// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// What the name of the folder where a workbook's pictures are kept ends with.
inline constexpr std::string_view thumbnails_ending = " thumbnails";

/// Where the pictures of a workbook are kept: "Reel 1 thumbnails" beside "Reel 1.xls".
std::filesystem::path place_of_thumbnails(const std::filesystem::path& workbook);

/// Whether a file must not be touched.
using precious_files = std::function<bool(const std::filesystem::path&)>;

/// The folder that one report's pictures are written into. It is private while the report is made, and its
/// destructor removes it with all it holds, whether the run ended well, failed or was stopped.
class thumbnail_folder {
public:
    /// In the system's folder for temporary files. Nothing when that takes no folder: pictures are not worth
    /// a report.
    static std::optional<thumbnail_folder> temporary();

    /// On the disk of the place where the workbook's pictures are kept, hidden until `publish`. Throws
    /// failure when that place cannot take them.
    static thumbnail_folder beside(const std::filesystem::path& workbook);

    thumbnail_folder(thumbnail_folder&& other) noexcept;
    thumbnail_folder& operator=(thumbnail_folder&&) = delete;
    ~thumbnail_folder();

    /// Where to write the pictures.
    const std::filesystem::path& path() const { return path_; }

    /// Puts the pictures into their place, which it gives. Pictures of an earlier report, which are known by
    /// their names ("0002 Clip.jpg"), go; other files there stay, and so does what `is_precious`. Throws
    /// failure when that would be replaced, and when anything goes wrong; everything is as it was then. Does
    /// nothing to a temporary folder.
    std::filesystem::path publish(const precious_files& is_precious);

    /// Undoes `publish`. Gives an empty text when everything is as it was before, or else a sentence about
    /// what is where.
    std::string take_back();

private:
    struct move {
        std::filesystem::path from;
        std::filesystem::path to;
    };

    thumbnail_folder(std::filesystem::path path, std::filesystem::path place);
    std::error_code put_away_older_pictures(const std::vector<std::filesystem::path>& new_names,
                                            const precious_files& is_precious);
    std::error_code put_in_place(const std::filesystem::path& name);
    std::error_code make(const move& wanted);
    [[noreturn]] void refuse(const std::string& reason);

    std::filesystem::path path_; ///< empty once it is moved from
    std::filesystem::path place_; ///< where the pictures go when they are kept; empty for a temporary folder
    bool made_place_ = false;
    std::vector<move> moves_; ///< what `publish` has done so far
};

} // namespace tallyframe
