// SPDX-License-Identifier: MIT
#include "media_files/spelled_paths.h"

#include "media_files/file_spelling.h"
#include "media_files/folder_reader.h"

#include <algorithm>
#include <climits>
#include <string_view>
#include <system_error>

namespace tallyframe {

namespace {

namespace fs = std::filesystem;

/// How far a name is from the wanted one: 0 the same, 1 in other accents, 2 in another letter case.
int distance(const std::string& name, const std::string& wanted)
{
    if (name == wanted)
        return 0;
    return one_spelling(name) == one_spelling(wanted) ? 1 : 2;
}

} // namespace

std::optional<fs::path> spelled_paths::find(const std::string& path,
                                            const std::function<bool(const fs::path&)>& is_wanted)
{
    if (is_wanted(path))
        return path;
    const fs::path wanted = path;
    if (path.size() >= PATH_MAX || wanted != wanted.lexically_normal() || !wanted.has_filename())
        return std::nullopt;
    for (const fs::path& folder : folders_like(wanted.parent_path().string())) {
        for (const std::string& name : names_like(wanted.filename().string(), folder)) {
            if (is_wanted(folder / name))
                return folder / name;
        }
    }
    return std::nullopt;
}

/// From the root down, so that what lies below a folder that is not there costs nothing.
const spelled_paths::folders& spelled_paths::folders_like(const std::string& folder)
{
    std::size_t end = folder.starts_with('/') ? 1 : 0;
    const folders* found =
        &folders_like_.try_emplace(folder.substr(0, end), folders{folder.substr(0, end)}).first->second;
    while (end < folder.size() && !found->empty()) {
        const std::size_t begin = folder[end] == '/' ? end + 1 : end;
        end = std::min(folder.find('/', begin), folder.size());
        const std::string_view upto = std::string_view(folder).substr(0, end);
        if (const auto known = folders_like_.find(upto); known != folders_like_.end()) {
            found = &known->second;
            continue;
        }
        folders below;
        std::error_code unseen;
        for (const fs::path& parent : *found) {
            for (const std::string& name : names_like(folder.substr(begin, end - begin), parent)) {
                if (fs::is_directory(parent / name, unseen))
                    below.push_back(parent / name);
            }
        }
        found = &folders_like_.emplace(upto, std::move(below)).first->second;
    }
    return *found;
}

/// The closest first. A folder that may be entered but not read still has the name itself.
std::vector<std::string> spelled_paths::names_like(const std::string& name, const fs::path& folder)
{
    const names_by_caseless_spelling& names = names_in(folder);
    const auto found = names.find(caseless_spelling(name));
    std::vector<std::string> likely = found != names.end() ? found->second : std::vector<std::string>();
    if (std::find(likely.begin(), likely.end(), name) == likely.end())
        likely.push_back(name);
    std::stable_sort(likely.begin(), likely.end(), [&](const std::string& a, const std::string& b) {
        return distance(a, name) < distance(b, name);
    });
    return likely;
}

const spelled_paths::names_by_caseless_spelling& spelled_paths::names_in(const fs::path& folder)
{
    const auto [entry, is_new] = names_in_.try_emplace(folder.string());
    if (is_new) {
        folder_reader entries(folder.empty() ? fs::path(".") : folder);
        while (std::optional<folder_entry> next = entries.next()) {
            display_.leave_if_cancelled();
            entry->second[caseless_spelling(next->name)].push_back(std::move(next->name));
        }
        for (auto& [spelling, names] : entry->second)
            std::sort(names.begin(), names.end()); // a disk has no order
    }
    return entry->second;
}

} // namespace tallyframe
