// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tallyframe {

/// The folder that one report's pictures are written into. It is private while the report is made, and its
/// destructor removes it with all it holds, whether the run ended well, failed or was stopped.
class thumbnail_folder {
public:
    /// In the system's folder for temporary files. Throws std::filesystem::filesystem_error, as beside does.
    static thumbnail_folder temporary();

    /// Beside a workbook, on its disk, hidden until `keep` gives it its place: "Reel 1 thumbnails" for
    /// "Reel 1.xls".
    static thumbnail_folder beside(const std::filesystem::path& workbook);

    thumbnail_folder(thumbnail_folder&& other) noexcept;
    thumbnail_folder& operator=(thumbnail_folder&&) = delete;
    ~thumbnail_folder();

    /// Where to write the pictures now.
    const std::filesystem::path& path() const { return path_; }

    /// The report is saved and the pictures stay. Gives the folder where they are from now on; pictures of
    /// the same names from an earlier report are replaced, other files there stay. Does nothing to a
    /// temporary folder.
    std::filesystem::path keep();

private:
    thumbnail_folder(std::filesystem::path path, std::filesystem::path place);

    std::filesystem::path path_; ///< empty once it is moved from
    std::filesystem::path place_; ///< where it goes when it is kept; empty for a temporary one
    bool is_kept_ = false;
};

} // namespace tallyframe
