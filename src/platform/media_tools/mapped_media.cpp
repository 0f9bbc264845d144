// SPDX-License-Identifier: MIT
#include "platform/media_tools/mapped_media.h"

#include "platform/log.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <system_error>
#include <utility>

namespace tallyframe {

namespace {

bool is_readable_file(const std::filesystem::path& file)
{
    std::error_code unseen;
    return std::filesystem::is_regular_file(file, unseen) && access(file.c_str(), R_OK) == 0;
}

/// One spelling of accented letters: a disk of a Mac takes "é" apart into two characters, others do not.
std::string one_spelling(const std::string& name)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* composition = icu::Normalizer2::getNFCInstance(status);
    std::string composed;
    if (U_SUCCESS(status))
        composition->normalize(icu::UnicodeString::fromUTF8(name), status).toUTF8String(composed);
    return U_SUCCESS(status) ? composed : name;
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
    return find_by_name(path);
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
    for (const std::filesystem::path& folder : search_folders_)
        list_files(folder);
    display_.show_message({});
}

void mapped_media::list_files(const std::filesystem::path& folder)
{
    namespace fs = std::filesystem;
    const std::string message = "Searching " + folder.string();
    std::vector<fs::path> files;
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        display_.show_message(message);
        if (is_readable_file(entry->path()))
            files.push_back(entry->path());
    }
    if (error)
        log(out_, "media: cannot search " + folder.string() + ": " + error.message());
    std::sort(files.begin(), files.end());
    for (fs::path& file : files)
        files_by_name_[one_spelling(file.filename().string())].push_back(std::move(file));
}

} // namespace tallyframe
