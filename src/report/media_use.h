// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// A media file and what clips show of it.
struct media_use {
    file_record file; ///< as the document describes it first
    std::size_t clip_count = 0;
    std::vector<used_frames> ranges; ///< at the file's rate, ascending; none touches another

    std::string_view path() const { return *file.path; }
};

/// Collects media files over clips, of one analysis or several of one document. Definitions with one path are
/// one file.
class media_use_list {
public:
    /// Clips without a media file on disk are left out: titles, mattes, files that the document gives no
    /// path.
    void add(const analysis_result& analysis, const std::vector<const clip_record*>& clips);

    /// In the order in which clips first showed them.
    std::vector<media_use> finished() const;

private:
    std::vector<media_use> uses_;
    std::unordered_map<std::string, std::size_t> by_path_;
};

} // namespace tallyframe
