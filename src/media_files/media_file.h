// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace tallyframe {

/// The number of an open file or socket, closed with its last owner.
class file_descriptor {
public:
    explicit file_descriptor(int number = -1) : number_(number) { }
    file_descriptor(file_descriptor&& other) noexcept;
    file_descriptor& operator=(file_descriptor&& other) noexcept;
    file_descriptor(const file_descriptor&) = delete;
    file_descriptor& operator=(const file_descriptor&) = delete;
    ~file_descriptor() { close(); }

    int number() const { return number_; }
    bool is_open() const { return number_ >= 0; }
    void close();

private:
    int number_;
};

/// A media file, open for reading: whoever has one needs to open nothing, and cannot write to it.
class media_file {
public:
    /// Opens a file. Only regular files are media: devices and pipes may never end.
    media_file(const std::filesystem::path& path); // NOLINT(google-explicit-constructor)

    /// A file that another process has opened. `name`: what its kind can be told by, and what tells it apart.
    media_file(std::filesystem::path name, file_descriptor opened, std::uint64_t size);

    bool is_open() const { return opened_->is_open(); }
    const std::filesystem::path& name() const { return name_; }
    std::uint64_t size() const { return size_; } ///< bytes, when it was opened
    int descriptor() const { return opened_->number(); }

    /// Bytes from a place on; fewer than asked for at the end and where reading fails. Nothing is read beyond
    /// size(): the kernel's own files say that they have none, and may never end.
    std::size_t read(std::uint64_t at, std::span<std::uint8_t> into) const;

private:
    std::filesystem::path name_;
    std::shared_ptr<file_descriptor> opened_;
    std::uint64_t size_ = 0;
};

} // namespace tallyframe
