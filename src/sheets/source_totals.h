// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// How much of the timeline a media file or a reel fills. The texts are those of the analysis.
struct source_total {
    std::string_view name; ///< last component of the file's path; the reel's name
    std::string_view path; ///< empty for a reel
    double estimated_total = 0; ///< frames at the sequence's rate
};

/// The media files met on the clips sheet, in the order met. Clips without a path count under the empty one.
class file_totals {
public:
    void add(const clip_record& clip);
    const std::vector<source_total>& entries() const { return entries_; }

private:
    std::vector<source_total> entries_;
    std::unordered_map<std::string_view, std::size_t> entry_by_path_;
};

double sum_of(const std::vector<source_total>& totals);

} // namespace tallyframe
