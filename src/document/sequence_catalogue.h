// SPDX-License-Identifier: MIT
#pragma once

#include "document/document_index.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

inline constexpr std::string_view separator_uuid = "----------";

/// One line of the menu of what can be reported. `uuid` is "" for the bin clips and separator_uuid for the
/// separator, whose title is empty.
struct catalogue_entry {
    std::string title;
    std::string uuid;

    bool is_separator() const { return uuid == separator_uuid; }
    bool operator==(const catalogue_entry&) const = default;
};

/// The menu of a document: "Bin Clips" when it has loose clips, a separator, then every sequence with a uuid,
/// in document order. Throws load_error for a sequence without a name (unexpected), and for names of more
/// than 100 MB in all.
std::vector<catalogue_entry> sequence_catalogue(const document_index& index);

} // namespace tallyframe
