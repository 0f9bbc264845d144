// SPDX-License-Identifier: MIT
#include "media_files/pictures/facts_entry.h"

#include "media_files/pictures/read_media_facts.h"

#include <optional>
#include <utility>

bool tallyframe_media_facts(const char* file, tallyframe::media_facts& facts)
{
    std::optional<tallyframe::media_facts> read = tallyframe::read_media_facts(file);
    if (read)
        facts = std::move(*read);
    return read.has_value();
}
