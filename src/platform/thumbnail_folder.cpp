// SPDX-License-Identifier: MIT
#include "platform/thumbnail_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>
#include <utility>

namespace tallyframe {

namespace fs = std::filesystem;

namespace {

/// A new folder that nobody else may look into; its name starts with `name`.
fs::path private_folder(const fs::path& parent, const std::string& name)
{
    std::string path = (parent / (name + ".XXXXXX")).string();
    if (mkdtemp(path.data()) == nullptr)
        throw fs::filesystem_error("There is no place for the thumbnails", parent,
                                   std::error_code(errno, std::generic_category()));
    return path;
}

/// What a folder made in the ordinary way would allow.
void open_to_others(const fs::path& folder)
{
    const mode_t mask = umask(0);
    umask(mask);
    fs::permissions(folder, static_cast<fs::perms>(0777U & ~mask));
}

} // namespace

thumbnail_folder thumbnail_folder::temporary()
{
    return {private_folder(fs::temp_directory_path(), "tallyframe"), {}};
}

thumbnail_folder thumbnail_folder::beside(const fs::path& workbook)
{
    const fs::path parent = fs::absolute(workbook).parent_path();
    const fs::path place = parent / (workbook.stem().string() + " thumbnails");
    if (fs::exists(place) && !fs::is_directory(place))
        throw fs::filesystem_error("The thumbnails cannot be kept", place,
                                   std::make_error_code(std::errc::not_a_directory));
    return {private_folder(parent, ".thumbnails"), place};
}

thumbnail_folder::thumbnail_folder(fs::path path, fs::path place)
    : path_(std::move(path)), place_(std::move(place))
{
}

thumbnail_folder::thumbnail_folder(thumbnail_folder&& other) noexcept
    : path_(std::exchange(other.path_, {})), place_(std::exchange(other.place_, {}))
{
}

thumbnail_folder::~thumbnail_folder()
{
    std::error_code unseen;
    if (!path_.empty() && !is_kept_)
        fs::remove_all(path_, unseen);
}

fs::path thumbnail_folder::keep()
{
    if (place_.empty() || is_kept_)
        return path_;
    if (fs::exists(place_)) {
        for (const fs::directory_entry& picture : fs::directory_iterator(path_))
            fs::rename(picture.path(), place_ / picture.path().filename());
        fs::remove(path_);
    } else {
        open_to_others(path_);
        fs::rename(path_, place_);
    }
    path_ = place_;
    is_kept_ = true;
    return path_;
}

} // namespace tallyframe
