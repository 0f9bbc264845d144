// SPDX-License-Identifier: MIT
#include "media_files/media_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tallyframe {

namespace {

/// Closed when it is no regular file.
file_descriptor opened_for_reading(const std::filesystem::path& path)
{
    // Opening a pipe or a terminal would wait, or take it over, before it is known to be none.
    file_descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    struct stat found = {};
    if (file.is_open() && (fstat(file.number(), &found) != 0 || !S_ISREG(found.st_mode)))
        file.close();
    return file;
}

std::uint64_t size_of(const file_descriptor& file)
{
    struct stat found = {};
    return file.is_open() && fstat(file.number(), &found) == 0 ? static_cast<std::uint64_t>(found.st_size)
                                                               : 0;
}

} // namespace

file_descriptor::file_descriptor(file_descriptor&& other) noexcept : number_(std::exchange(other.number_, -1))
{
}

file_descriptor& file_descriptor::operator=(file_descriptor&& other) noexcept
{
    std::swap(number_, other.number_);
    return *this;
}

void file_descriptor::close()
{
    if (number_ >= 0)
        ::close(number_);
    number_ = -1;
}

media_file::media_file(const std::filesystem::path& path)
    : name_(path), opened_(std::make_shared<file_descriptor>(opened_for_reading(path))),
      size_(size_of(*opened_))
{
}

media_file::media_file(std::filesystem::path name, file_descriptor opened, std::uint64_t size)
    : name_(std::move(name)), opened_(std::make_shared<file_descriptor>(std::move(opened))), size_(size)
{
}

std::size_t media_file::read(std::uint64_t at, std::span<std::uint8_t> into) const
{
    const std::size_t wanted =
        at < size_ ? static_cast<std::size_t>(std::min<std::uint64_t>(into.size(), size_ - at)) : 0;
    std::size_t count = 0;
    while (count < wanted) {
        const ssize_t got =
            pread(opened_->number(), into.data() + count, wanted - count, static_cast<off_t>(at + count));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        count += static_cast<std::size_t>(got);
    }
    return count;
}

} // namespace tallyframe
