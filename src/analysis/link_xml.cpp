// SPDX-License-Identifier: MIT
#include "analysis/link_xml.h"

namespace tallyframe {

std::optional<std::string> link_xml(const clip_record& clip)
{
    if (!clip.audio_item)
        return std::nullopt;
    std::string markup;
    for (const xml_node link : clip.audio_item.all("link"))
        markup += link.markup();
    return markup;
}

} // namespace tallyframe
