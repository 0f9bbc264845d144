// SPDX-License-Identifier: MIT
#include "report/media_use.h"

#include <algorithm>
#include <cmath>

namespace tallyframe {

namespace {

/// In frames of another rate, where two definitions of a file disagree on it.
used_frames at_rate(const used_frames& frames, const std::optional<frame_rate>& from,
                    const std::optional<frame_rate>& to)
{
    if (!from || !to || from->frames_per_second == to->frames_per_second || from->frames_per_second <= 0)
        return frames;
    const double ratio = to->frames_per_second / from->frames_per_second;
    const double begin = std::floor(static_cast<double>(frames.first) * ratio);
    const double end = std::ceil((static_cast<double>(frames.last) + 1) * ratio);
    constexpr double most_frames = 0x1p53;
    if (!(std::abs(begin) < most_frames && std::abs(end) < most_frames))
        return frames;
    return {static_cast<std::int64_t>(begin), static_cast<std::int64_t>(end) - 1};
}

void join_touching(std::vector<used_frames>& ranges)
{
    std::sort(ranges.begin(), ranges.end(),
              [](const used_frames& a, const used_frames& b) { return a.first < b.first; });
    std::size_t count = 0;
    for (const used_frames& next : ranges) {
        if (count != 0 && next.first <= ranges[count - 1].last + 1)
            ranges[count - 1].last = std::max(ranges[count - 1].last, next.last);
        else
            ranges[count++] = next;
    }
    ranges.resize(count);
}

bool is_on_disk(const file_record& file)
{
    return file.video_format && file.path && !file.path->empty(); // a format: located by a path
}

} // namespace

void media_use_list::add(const analysis_result& analysis, const std::vector<const clip_record*>& clips)
{
    for (const clip_record* clip : clips) {
        if (!clip->media_file || !is_on_disk(analysis.media_files.at(*clip->media_file)))
            continue;
        const file_record& file = analysis.media_files[*clip->media_file];
        const auto [entry, is_new] = by_path_.try_emplace(*file.path, uses_.size());
        if (is_new)
            uses_.push_back({file, 0, {}});
        media_use& use = uses_[entry->second];
        ++use.clip_count;
        if (clip->media_frames)
            use.ranges.push_back(at_rate(*clip->media_frames, file.fcp_rate, use.file.fcp_rate));
    }
}

std::vector<media_use> media_use_list::finished() const
{
    std::vector<media_use> uses = uses_;
    for (media_use& use : uses)
        join_touching(use.ranges);
    return uses;
}

} // namespace tallyframe
