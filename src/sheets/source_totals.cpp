// SPDX-License-Identifier: MIT
#include "sheets/source_totals.h"

#include "media/file_urls.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace tallyframe {

namespace {

/// Frames of the place from `covered_until` on, which then is behind them. Of places by their start, each
/// frame is counted once so.
std::int64_t frames_not_yet_covered(const track_position& place, std::int64_t& covered_until)
{
    const std::int64_t begin = std::max(place.seq_start_frame, covered_until);
    const std::int64_t end = place.seq_end_frame + 1;
    covered_until = std::max(covered_until, end);
    return std::max<std::int64_t>(end - begin, 0);
}

} // namespace

std::vector<source_total> totals_of_files(const std::vector<const clip_record*>& rows, figure_style figures)
{
    std::vector<source_total> files;
    std::vector<std::int64_t> covered_until; // of each file
    std::unordered_map<std::string_view, std::size_t> file_of_path;
    for (const clip_record* clip : rows) {
        const std::string_view path = clip->path ? std::string_view(*clip->path) : std::string_view();
        const auto [found, is_new] = file_of_path.try_emplace(path, files.size());
        if (is_new) {
            files.push_back({last_path_component(path), path, 0});
            covered_until.push_back(clip->place.seq_start_frame);
        }
        const std::int64_t frames = figures == figure_style::exact
            ? frames_not_yet_covered(clip->place, covered_until[found->second])
            : clip->place.seq_length;
        files[found->second].estimated_total += static_cast<double>(frames);
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
