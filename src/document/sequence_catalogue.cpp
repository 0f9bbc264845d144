// SPDX-License-Identifier: MIT
#include "document/sequence_catalogue.h"

#include "platform/failures.h"

namespace tallyframe {

std::vector<catalogue_entry> sequence_catalogue(const document_index& index)
{
    std::vector<catalogue_entry> entries;
    if (index.has_bin_clips)
        entries.push_back({"Bin Clips", ""});
    if (index.has_bin_clips && !index.sequence_uuids.empty())
        entries.push_back({"", std::string(separator_uuid)});
    for (const xml_node uuid : index.sequence_uuids) {
        auto title = uuid.parent().text_of("name");
        if (!title)
            throw load_error("The sequence \"" + uuid.text() + "\" has no name.");
        entries.push_back({std::move(*title), uuid.text()});
    }
    return entries;
}

} // namespace tallyframe
