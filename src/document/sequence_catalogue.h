// SPDX-License-Identifier: MIT
#pragma once

#include "document/document_index.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

inline constexpr std::string_view separator_uuid = "----------";

/// What becomes of sequences without a uuid. Only Final Cut Pro 7 and Premiere Pro write one, for the
/// outermost.
enum class unidentified_sequences { left_out, listed };

/// One line of the menu of what can be reported. `uuid` is "" for the bin clips and separator_uuid for the
/// separator, whose title is empty.
struct catalogue_entry {
    std::string title;
    std::string uuid;
    std::optional<std::size_t> unidentified =
        {}; ///< place among the sequences without a uuid, whose own is ""

    bool is_separator() const { return uuid == separator_uuid; }
    bool is_bins() const { return uuid.empty() && !unidentified; }
    bool operator==(const catalogue_entry&) const = default;
};

/// The menu of a document: "Bin Clips" when it has loose clips, a separator, then every sequence with a uuid,
/// in document order. Where they are listed, another separator and those without a uuid follow, as "Sequence
/// N" those without a name. Throws load_error for a sequence with a uuid and no name (unexpected), and for
/// names of more than 100 MB in all.
std::vector<catalogue_entry>
sequence_catalogue(const document_index& index,
                   unidentified_sequences without_uuid = unidentified_sequences::left_out);

} // namespace tallyframe
