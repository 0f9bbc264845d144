// SPDX-License-Identifier: MIT
#include "sheets/source_totals.h"

#include "media/file_urls.h"

namespace tallyframe {

void file_totals::add(const clip_record& clip)
{
    const std::string_view path = clip.path ? std::string_view(*clip.path) : std::string_view();
    const auto [found, is_new] = entry_by_path_.try_emplace(path, entries_.size());
    if (is_new)
        entries_.push_back({last_path_component(path), path, 0});
    entries_[found->second].estimated_total += static_cast<double>(clip.seq_length);
}

double sum_of(const std::vector<source_total>& totals)
{
    double sum = 0;
    for (const source_total& total : totals)
        sum += total.estimated_total;
    return sum;
}

} // namespace tallyframe
