// SPDX-License-Identifier: MIT
#include "media_files/file_index.h"

#include "media_files/file_spelling.h"

#include <algorithm>
#include <tuple>
#include <utility>

// A key, each part ended by a zero, which stands in no name:
//
//     caseless name | name | caseless parent | its parent | …
//
// Files with the same name, and among them those in folders of the same names, are then neighbours.

namespace tallyframe {

namespace {

void append(std::string& key, const std::string& part)
{
    key += part;
    key += '\0';
}

std::string caseless_key(const std::string& name)
{
    std::string key;
    append(key, caseless_spelling(name));
    return key;
}

std::string name_key(const std::string& name)
{
    std::string key = caseless_key(name);
    append(key, one_spelling(name));
    return key;
}

/// The caseless names of the folders, from the innermost out.
std::vector<std::string> parents_of(const std::filesystem::path& folder)
{
    std::vector<std::string> parents;
    for (const std::filesystem::path& part : folder.relative_path())
        parents.push_back(caseless_spelling(part.string()));
    std::reverse(parents.begin(), parents.end());
    return parents;
}

} // namespace

void file_index::add(std::filesystem::path file)
{
    std::string key = name_key(file.filename().string());
    for (const std::string& parent : parents_of(file.parent_path()))
        append(key, parent);
    entries_.push_back({std::move(key), files_.size()});
    files_.push_back(std::move(file));
}

void file_index::finish()
{
    std::sort(entries_.begin(), entries_.end(), [](const entry& a, const entry& b) {
        return std::tie(a.key, a.file) < std::tie(b.key, b.file);
    });
}

/// The part of a range whose keys begin so; `prefix` ends with a zero.
file_index::range file_index::with_prefix(const std::string& prefix, range among)
{
    const auto is_before = [](const entry& left, const std::string& right) { return left.key < right; };
    std::string after = prefix;
    after.back() = '\1';
    return {std::lower_bound(among.begin, among.end, prefix, is_before),
            std::lower_bound(among.begin, among.end, after, is_before)};
}

/// The files of one spelling, then those of them in a folder with the wanted parent's name, and so on.
std::vector<file_index::range> file_index::narrowing_ranges(const std::string& name_key,
                                                            const std::filesystem::path& parents, range among)
{
    std::vector<range> ranges;
    std::string prefix = name_key;
    range found = with_prefix(prefix, among);
    for (const std::string& parent : parents_of(parents)) {
        if (found.begin == found.end)
            return ranges;
        ranges.push_back(found);
        append(prefix, parent);
        found = with_prefix(prefix, found);
    }
    if (found.begin != found.end)
        ranges.push_back(found);
    return ranges;
}

/// The second parts of the keys, which begin at `begin`, each once.
std::vector<std::string> file_index::spellings_in(range among, std::size_t begin)
{
    std::vector<std::string> spellings;
    for (auto at = among.begin; at != among.end;) {
        std::string key = at->key.substr(0, at->key.find('\0', begin) + 1);
        at = with_prefix(key, {at, among.end}).end;
        spellings.push_back(std::move(key));
    }
    return spellings;
}

void file_index::find(const std::string& path, const std::function<bool(const group&)>& is_enough) const
{
    const std::filesystem::path wanted = path;
    const std::string name = wanted.filename().string();
    const std::string caseless = caseless_key(name);
    const range all = with_prefix(caseless, {entries_.begin(), entries_.end()});

    std::vector<std::string> keys = {name_key(name)};
    if (const range same = with_prefix(keys.front(), all); same.begin == same.end)
        keys = spellings_in(all, caseless.size());

    std::vector<std::vector<range>> by_spelling;
    std::size_t depth = 0;
    for (const std::string& key : keys) {
        by_spelling.push_back(narrowing_ranges(key, wanted.parent_path(), all));
        depth = std::max(depth, by_spelling.back().size());
    }
    for (; depth > 0; --depth) {
        std::vector<std::size_t> files;
        const auto take = [&](auto begin, auto end) {
            std::for_each(begin, end, [&](const entry& of) { files.push_back(of.file); });
        };
        for (const std::vector<range>& ranges : by_spelling) {
            if (ranges.size() < depth)
                continue;
            const range& outer = ranges[depth - 1];
            const range inner = ranges.size() > depth ? ranges[depth] : range{outer.end, outer.end};
            take(outer.begin, inner.begin);
            take(inner.end, outer.end);
        }
        std::sort(files.begin(), files.end());
        group shown;
        for (const std::size_t file : files)
            shown.push_back(&files_[file]);
        if (!shown.empty() && is_enough(shown))
            return;
    }
}

} // namespace tallyframe
