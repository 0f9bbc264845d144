// SPDX-License-Identifier: MIT
#include "media_files/mapped_media.h"

#include "media_files/folder_reader.h"
#include "run/log.h"
#include "text/icu_text.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <system_error>
#include <utility>

namespace tallyframe {

namespace {

bool is_file(const std::filesystem::path& file)
{
    std::error_code unseen;
    return std::filesystem::is_regular_file(file, unseen);
}

bool is_readable_file(const std::filesystem::path& file)
{
    return is_file(file) && faccessat(AT_FDCWD, file.c_str(), R_OK, AT_EACCESS) == 0;
}

/// One spelling of accented letters: a disk of a Mac takes "é" apart into two characters, others do not.
std::string one_spelling(const std::string& name)
{
    std::string spelling;
    composed(name).toUTF8String(spelling);
    return spelling;
}

/// How many parent folders of two paths have the same names, counted from the file upwards.
std::ptrdiff_t shared_parents(const std::filesystem::path& a, const std::filesystem::path& b)
{
    const std::filesystem::path parents_a = a.parent_path();
    const std::filesystem::path parents_b = b.parent_path();
    auto in_a = parents_a.end();
    auto in_b = parents_b.end();
    std::ptrdiff_t count = 0;
    while (in_a != parents_a.begin() && in_b != parents_b.begin()) {
        if (one_spelling((--in_a)->string()) != one_spelling((--in_b)->string()))
            break;
        ++count;
    }
    return count;
}

void strip_last_slashes(std::string& folder)
{
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
}

/// What follows a folder in a path, with the "/" before it; nothing when the path does not lie below it.
std::optional<std::string> below(const std::string& path, const std::string& folder)
{
    if (folder == "/" && path.starts_with('/'))
        return path;
    if (!path.starts_with(folder) || path.size() <= folder.size() || path[folder.size()] != '/')
        return std::nullopt;
    return path.substr(folder.size());
}

} // namespace

mapped_media::mapped_media(std::vector<media_mapping> mappings,
                           std::vector<std::filesystem::path> search_folders, diagnostics& out,
                           progress& display)
    : mappings_(std::move(mappings)), search_folders_(std::move(search_folders)), out_(out), display_(display)
{
    for (media_mapping& mapping : mappings_) {
        strip_last_slashes(mapping.from);
        strip_last_slashes(mapping.to);
    }
    std::stable_sort(mappings_.begin(), mappings_.end(), [](const media_mapping& a, const media_mapping& b) {
        return a.from.size() > b.from.size();
    });
}

std::optional<std::filesystem::path> mapped_media::locate(const std::string& path)
{
    const auto [entry, is_new] = found_.try_emplace(path);
    if (is_new) {
        entry->second = find(path);
        if (entry->second && *entry->second != path)
            log(out_, "media: " + path + " is " + entry->second->string());
    }
    return entry->second;
}

std::optional<std::filesystem::path> mapped_media::find(const std::string& path)
{
    if (auto mapped = find_mapped(path))
        return mapped;
    if (is_readable_file(path))
        return path;
    if (auto named = find_by_name(path))
        return named;
    // One that may not be read is not missing: whoever opens it will tell.
    return is_file(path) ? std::optional<std::filesystem::path>(path) : std::nullopt;
}

std::optional<std::filesystem::path> mapped_media::find_mapped(const std::string& path) const
{
    for (const media_mapping& mapping : mappings_) {
        const std::optional<std::string> rest = below(path, mapping.from);
        if (rest && is_readable_file(mapping.to + *rest))
            return mapping.to + *rest;
    }
    return std::nullopt;
}

std::optional<std::filesystem::path> mapped_media::find_by_name(const std::string& path)
{
    if (!std::exchange(is_listed_, true))
        list_search_folders();
    const std::filesystem::path wanted = path;
    const auto named = files_by_name_.find(one_spelling(wanted.filename().string()));
    if (named == files_by_name_.end())
        return std::nullopt;
    const auto best =
        std::max_element(named->second.begin(), named->second.end(), [&](const auto& a, const auto& b) {
            return shared_parents(a, wanted) < shared_parents(b, wanted);
        });
    return *best;
}

void mapped_media::list_search_folders()
{
    unread_folders unread;
    for (const std::filesystem::path& folder : search_folders_)
        list_files(folder, unread);
    display_.show_message({});
    for (const auto& [folder, error] : unread) {
        log(out_, "media: cannot search " + folder.string() + ": " + error.message());
        lost_.add(loss_kind::unread_folders, 1, folder.string());
    }
}

void mapped_media::list_files(const std::filesystem::path& root, unread_folders& unread)
{
    namespace fs = std::filesystem;
    const std::string message = "Searching " + root.string();
    std::vector<fs::path> files;
    std::vector<fs::path> folders = {root};
    while (!folders.empty()) {
        const fs::path folder = std::move(folders.back());
        folders.pop_back();
        folder_reader entries(folder);
        while (const std::optional<folder_entry> entry = entries.next()) {
            display_.show_message(message);
            fs::path path = folder / entry->name;
            if (entry->is_folder) // not behind links, which may lead in circles
                folders.push_back(std::move(path));
            else if (is_readable_file(path))
                files.push_back(std::move(path));
        }
        if (entries.error())
            unread.emplace(folder, entries.error());
    }
    std::sort(files.begin(), files.end());
    for (fs::path& file : files)
        files_by_name_[one_spelling(file.filename().string())].push_back(std::move(file));
}

} // namespace tallyframe
