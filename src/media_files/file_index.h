// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// Files by their name and by the folders that they lie in.
class file_index {
public:
    /// Files of one name that share as many parent folders with a wanted path as each other, in the order in
    /// which they were added.
    using group = std::vector<const std::filesystem::path*>;

    /// In any order; `finish` comes after the last.
    void add(std::filesystem::path file);
    void finish();

    /// Shows the files that have the name of `path`, in whatever accents, or where there is none, in whatever
    /// letter case: group after group from the one that shares the most parents, until `is_enough`.
    void find(const std::string& path, const std::function<bool(const group&)>& is_enough) const;

private:
    struct entry {
        std::string key; ///< from the name up to the root
        std::size_t file;
    };
    struct range {
        std::vector<entry>::const_iterator begin, end;
    };

    static range with_prefix(const std::string& prefix, range among);
    static std::vector<range> narrowing_ranges(const std::string& name_key,
                                               const std::filesystem::path& parents, range among);
    static std::vector<std::string> spellings_in(range among, std::size_t begin);

    std::deque<std::filesystem::path> files_;
    std::vector<entry> entries_; ///< in the order of their keys, once finished
};

} // namespace tallyframe
