// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"
#include "media/file_record.h"
#include "run/progress.h"
#include "timecode/frame_rates.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// The document's media files by id; of several with one id the first counts.
class file_catalogue {
public:
    void add(file_record file);
    const file_record* find(std::string_view id) const;
    const std::deque<file_record>& records() const { return records_; }

private:
    std::deque<file_record> records_; // large ones: nothing is kept in reserve
    std::unordered_map<std::string, std::size_t> first_by_id_;
};

struct files_info {
    file_catalogue files;
    std::vector<std::string> reel_names; ///< in the order met, repeats kept
};

inline constexpr std::string_view media_files_message = "Analyzing Media Files\n";

/// Reads all `file` elements of a document; elements without content only repeat an id and are skipped.
/// `seq_fcp_rate`: the sequence's rate, nothing for bins. Throws analysis_error when texts inside of elements
/// in each other make the records too long.
files_info get_files_info(const std::vector<xml_node>& file_elements, std::optional<frame_rate> seq_fcp_rate,
                          progress& display);

} // namespace tallyframe
