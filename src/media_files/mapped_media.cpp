// SPDX-License-Identifier: MIT
#include "media_files/mapped_media.h"

#include "media_files/file_spelling.h"
#include "media_files/folder_search.h"
#include "run/log.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <system_error>
#include <utility>

namespace tallyframe {

namespace {

namespace fs = std::filesystem;

/// Of more files of one name nobody can say which is meant: they are not opened one after the other.
constexpr std::size_t most_compared_files = 50;

void strip_last_slashes(std::string& folder)
{
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
}

std::size_t depth_of(std::string_view folder)
{
    return folder == "/" ? 0 : static_cast<std::size_t>(std::count(folder.begin(), folder.end(), '/'));
}

/// Whether a path lies below a folder, both in one spelling.
bool is_below(std::string_view path, std::string_view folder)
{
    if (folder == "/")
        return path.starts_with('/');
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

/// What follows as many folders at the front of a path, with the "/" before it.
std::string after_folders(const std::string& path, std::size_t depth)
{
    std::size_t at = path.find('/');
    for (; depth > 0; --depth)
        at = path.find('/', at + 1);
    return path.substr(at);
}

bool is_folder(const fs::path& path)
{
    std::error_code unseen;
    return fs::is_directory(path, unseen);
}

/// A link and the file that it leads to are no two files.
bool are_one_file(const file_index::group& files)
{
    return std::all_of(files.begin() + 1, files.end(), [&](const fs::path* file) {
        std::error_code unseen;
        return fs::equivalent(*files.front(), *file, unseen);
    });
}

} // namespace

mapped_media::mapped_media(std::vector<media_mapping> mappings, std::vector<fs::path> search_folders,
                           diagnostics& out, progress& display, media_probe* probe)
    : search_folders_(std::move(search_folders)), out_(out), display_(display), probe_(probe), disk_(display)
{
    for (media_mapping& given : mappings) {
        mapping made;
        made.given = std::move(given);
        made.from = one_spelling(with_slashes(made.given.from));
        made.to = made.given.to;
        strip_last_slashes(made.from);
        strip_last_slashes(made.to);
        made.caseless_from = caseless_spelling(made.from);
        made.depth = depth_of(made.from);
        made.leads_somewhere = disk_.find(made.to, is_folder).has_value();
        mappings_.push_back(std::move(made));
    }
    std::stable_sort(mappings_.begin(), mappings_.end(),
                     [](const mapping& a, const mapping& b) { return a.from.size() > b.from.size(); });
}

void mapped_media::expect(std::span<const documented_media> media)
{
    is_told_of_media_ = true;
    for (const documented_media& file : media) {
        for (mapping* fitting : fitting_mappings(with_slashes(file.path)))
            fitting->fits_a_file = true;
        if (!search_folders_.empty())
            said_.try_emplace(file.path, file.facts);
    }
}

std::optional<fs::path> mapped_media::locate(const std::string& path)
{
    const auto [entry, is_new] = found_.try_emplace(path);
    if (is_new && path.size() < PATH_MAX) {
        unreadable_.reset();
        entry->second = find(path);
        if (!entry->second)
            entry->second = unreadable_;
        if (entry->second && *entry->second != path)
            log(out_, "media: " + path + " is " + entry->second->string());
    }
    return entry->second;
}

account mapped_media::losses() const
{
    account lost = lost_;
    for (const mapping& map : mappings_) {
        const std::string text = map.given.from + "=" + map.given.to;
        if (!map.leads_somewhere)
            lost.add(loss_kind::absent_map_folders, 1, text);
        else if (is_told_of_media_ && !map.fits_a_file)
            lost.add(loss_kind::unused_maps, 1, text);
    }
    return lost;
}

std::optional<fs::path> mapped_media::find(const std::string& path)
{
    if (auto mapped = find_mapped(with_slashes(path)))
        return mapped;
    if (auto there = disk_.find(path, [this](const fs::path& file) { return is_usable(file); }))
        return there;
    return find_by_name(path);
}

/// Those that fit letter by letter first, then those that fit in another case.
std::vector<mapped_media::mapping*> mapped_media::fitting_mappings(const std::string& path)
{
    std::vector<mapping*> fitting;
    if (mappings_.empty())
        return fitting;
    const std::string spelled = one_spelling(path);
    const std::string caseless = caseless_spelling(path);
    for (mapping& map : mappings_) {
        if (is_below(spelled, map.from))
            fitting.push_back(&map);
    }
    for (mapping& map : mappings_) {
        if (is_below(caseless, map.caseless_from) && !is_below(spelled, map.from))
            fitting.push_back(&map);
    }
    return fitting;
}

std::optional<fs::path> mapped_media::find_mapped(const std::string& path)
{
    for (const mapping* map : fitting_mappings(path)) {
        if (auto file = disk_.find(map->to + after_folders(path, map->depth),
                                   [this](const fs::path& candidate) { return is_usable(candidate); }))
            return file;
    }
    return std::nullopt;
}

std::optional<fs::path> mapped_media::find_by_name(const std::string& path)
{
    if (search_folders_.empty())
        return std::nullopt;
    if (!searched_) {
        found_files found = files_below(search_folders_, out_, display_);
        lost_ += found.lost;
        searched_ = std::move(found.index);
    }

    const std::vector<file_index::group> groups = usable_files_named_as(with_slashes(path));
    file_index::group all;
    for (const file_index::group& group : groups)
        all.insert(all.end(), group.begin(), group.end());
    if (all.size() < 2)
        return all.empty() ? std::nullopt : std::optional(*all.front());

    const auto said = said_.find(path);
    const bool can_compare = said != said_.end() && all.size() <= most_compared_files;
    const likely_files best = likeliest(groups, can_compare ? &said->second : nullptr);
    if (best.likeness == contradicts)
        tell_of_guess(path, all);
    else if (!are_one_file(best.files))
        tell_of_guess(path, best.files);
    return *best.files.front();
}

/// By the parents that they share with the path. No more than it takes to see that they are too many.
std::vector<file_index::group> mapped_media::usable_files_named_as(const std::string& path)
{
    std::vector<file_index::group> groups;
    std::size_t count = 0;
    searched_->find(path, [&](const file_index::group& group) {
        file_index::group usable;
        for (const fs::path* file : group) {
            if (count + usable.size() <= most_compared_files && is_usable(*file))
                usable.push_back(file);
        }
        count += usable.size();
        if (!usable.empty())
            groups.push_back(std::move(usable));
        return count > most_compared_files;
    });
    return groups;
}

/// The files that fit best what the document says, of the first group that has any.
mapped_media::likely_files mapped_media::likeliest(const std::vector<file_index::group>& groups,
                                                   const media_facts* said)
{
    std::array<file_index::group, agrees + 1> by_likeness;
    for (const file_index::group& group : groups) {
        std::array<file_index::group, agrees + 1> of_group;
        for (const fs::path* file : group)
            of_group[said != nullptr ? likeness(*file, *said) : unknown].push_back(file);
        for (std::size_t i = 0; i < by_likeness.size(); ++i) {
            if (by_likeness[i].empty())
                by_likeness[i] = std::move(of_group[i]);
        }
        if (!by_likeness[agrees].empty() || said == nullptr)
            break;
    }
    for (const likeness_of_file fit : {agrees, unknown}) {
        if (!by_likeness[fit].empty())
            return {fit, std::move(by_likeness[fit])};
    }
    return {contradicts, std::move(by_likeness[contradicts])};
}

mapped_media::likeness_of_file mapped_media::likeness(const fs::path& file, const media_facts& said)
{
    if (probe_ == nullptr)
        return unknown;
    const auto [entry, is_new] = seen_.try_emplace(file.string());
    if (is_new) {
        display_.leave_if_cancelled();
        entry->second = probe_->facts_of(file);
    }
    if (!entry->second)
        return unknown;
    const fact_differences differences = differences_of(*entry->second, said);
    if (differences.any())
        return contradicts;
    return differences.compared != 0 ? agrees : unknown;
}

void mapped_media::tell_of_guess(const std::string& path, const file_index::group& files)
{
    std::string names = files.front()->string() + " or " + files.at(1)->string();
    if (files.size() > 2)
        names += " or …";
    log(out_, "media: several files are named as " + path + ": " + names);
    lost_.add(loss_kind::guessed_media, 1, names);
}

/// A file that may not be read is kept in mind: it is there.
bool mapped_media::is_usable(const fs::path& file)
{
    std::error_code unseen;
    if (!fs::is_regular_file(file, unseen))
        return false;
    if (eaccess(file.c_str(), R_OK) == 0)
        return true;
    if (!unreadable_)
        unreadable_ = file;
    return false;
}

} // namespace tallyframe
