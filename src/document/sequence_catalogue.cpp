// SPDX-License-Identifier: MIT
#include "document/sequence_catalogue.h"

#include "run/failures.h"
#include "text/visible_text.h"

namespace tallyframe {

namespace {

// A sequence has its name once, however many identifiers it carries: each of them gives an entry with that
// name.
constexpr std::size_t titles_limit = 100'000'000; ///< bytes

} // namespace

std::vector<catalogue_entry> sequence_catalogue(const document_index& index)
{
    std::vector<catalogue_entry> entries;
    std::size_t titles_size = 0;
    if (index.has_bin_clips)
        entries.push_back({"Bin Clips", ""});
    if (index.has_bin_clips && !index.sequence_uuids.empty())
        entries.push_back({"", std::string(separator_uuid)});
    for (const xml_node uuid : index.sequence_uuids) {
        auto title = uuid.parent().text_of("name");
        if (!title)
            throw load_error("The sequence " + in_quotes(uuid.text()) + " has no name.",
                             load_fault::unexpected);
        titles_size += title->size();
        if (titles_size > titles_limit)
            throw load_error(
                "The names of the sequences come to more than 100 MB. Shorten the longest ones, then "
                "export the document again.");
        entries.push_back({std::move(*title), uuid.text()});
    }
    return entries;
}

} // namespace tallyframe
