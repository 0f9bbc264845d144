// SPDX-License-Identifier: MIT
#include "media_files/folder_reader.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <new>
#include <string_view>

namespace tallyframe {

folder_reader::folder_reader(const std::filesystem::path& folder) : entries_(opendir(folder.c_str()))
{
    if (!entries_)
        fail(errno);
}

std::optional<folder_entry> folder_reader::next()
{
    while (entries_) {
        errno = 0;
        const dirent* entry = readdir(entries_.get()); // NOLINT(concurrency-mt-unsafe): nobody else reads it
        if (entry == nullptr && errno != 0)
            fail(errno);
        if (entry == nullptr)
            break;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            return folder_entry{std::string(name), is_folder(*entry)};
    }
    return std::nullopt;
}

/// Not every file system says so beside the name.
bool folder_reader::is_folder(const dirent& entry) const
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat status { };
    return fstatat(dirfd(entries_.get()), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0
        && S_ISDIR(status.st_mode);
}

void folder_reader::fail(int number)
{
    if (number == ENOMEM)
        throw std::bad_alloc();
    error_ = {number, std::generic_category()};
}

} // namespace tallyframe
