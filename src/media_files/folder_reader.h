// SPDX-License-Identifier: MIT
#pragma once

#include <dirent.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace tallyframe {

struct folder_entry {
    enum class kind { file, folder, link, other };

    std::string name;
    kind is = kind::other; ///< of itself: a link to a folder is a link
};

/// Reads a folder entry by entry, "." and ".." left out.
///
/// The standard library's iterators end the program when memory runs out between two entries. Here, as
/// everywhere, std::bad_alloc is thrown.
class folder_reader {
public:
    explicit folder_reader(const std::filesystem::path& folder);

    /// Nothing at the end, and when the folder cannot be read: `error` tells them apart.
    std::optional<folder_entry> next();

    /// What the folder is called by the system, whatever path leads to it: its device and its number there.
    std::pair<dev_t, ino_t> identity() const;

    /// Why reading ended before the end of the folder.
    const std::error_code& error() const { return error_; }

private:
    struct closer {
        void operator()(DIR* entries) const { closedir(entries); }
    };

    folder_entry::kind kind_of(const dirent& entry) const;
    void fail(int number);

    std::unique_ptr<DIR, closer> entries_;
    std::error_code error_;
};

} // namespace tallyframe
