// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "run/figure_style.h"

#include <string_view>
#include <vector>

namespace tallyframe {

/// How much of the timeline a media file or a reel fills. The texts are those of the analysis.
struct source_total {
    std::string_view name; ///< last component of the file's path; the reel's name
    std::string_view path; ///< empty for a reel
    double estimated_total = 0; ///< frames at the sequence's rate
};

/// The media files of the clips sheet's rows, in the order met. Clips without a path count under the empty
/// one. Comparable, every row counts whole, so that picture and sound of one file count twice; exact, each
/// frame of the sequence counts once a file.
std::vector<source_total> totals_of_files(const std::vector<const clip_record*>& rows,
                                          figure_style figures = figure_style::comparable);

double sum_of(const std::vector<source_total>& totals);

} // namespace tallyframe
