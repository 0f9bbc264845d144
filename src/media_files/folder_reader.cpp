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
            return folder_entry{std::string(name), kind_of(*entry)};
    }
    return std::nullopt;
}

std::pair<dev_t, ino_t> folder_reader::identity() const
{
    struct stat status { };
    if (entries_)
        fstat(dirfd(entries_.get()), &status);
    return {status.st_dev, status.st_ino};
}

/// Not every file system says so beside the name.
folder_entry::kind folder_reader::kind_of(const dirent& entry) const
{
    struct stat status { };
    unsigned char type = entry.d_type;
    if (type == DT_UNKNOWN && fstatat(dirfd(entries_.get()), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        type = static_cast<unsigned char>(IFTODT(status.st_mode));
    switch (type) {
    case DT_REG:
        return folder_entry::kind::file;
    case DT_DIR:
        return folder_entry::kind::folder;
    case DT_LNK:
        return folder_entry::kind::link;
    default:
        return folder_entry::kind::other;
    }
}

void folder_reader::fail(int number)
{
    if (number == ENOMEM)
        throw std::bad_alloc();
    error_ = {number, std::generic_category()};
}

} // namespace tallyframe
