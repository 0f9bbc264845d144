// SPDX-License-Identifier: MIT
#include "sheets/source_totals.h"

#include "media/file_urls.h"

#include <cstddef>
#include <unordered_map>

namespace tallyframe {

std::vector<source_total> totals_of_files(const std::vector<const clip_record*>& rows)
{
    std::vector<source_total> files;
    std::unordered_map<std::string_view, std::size_t> file_of_path;
    for (const clip_record* clip : rows) {
        const std::string_view path = clip->path ? std::string_view(*clip->path) : std::string_view();
        const auto [found, is_new] = file_of_path.try_emplace(path, files.size());
        if (is_new)
            files.push_back({last_path_component(path), path, 0});
        files[found->second].estimated_total += static_cast<double>(clip->place.seq_length);
    }
    return files;
}

double sum_of(const std::vector<source_total>& totals)
{
    double sum = 0;
    for (const source_total& total : totals)
        sum += total.estimated_total;
    return sum;
}

} // namespace tallyframe
