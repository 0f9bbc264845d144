// SPDX-License-Identifier: MIT
#include "analysis/analysis_walk.h"

#include "analysis/frame_numbers.h"
#include "run/failures.h"
#include "text/visible_text.h"

namespace tallyframe {

track_position position_of(const analysis_walk& walk, const track_context& track, std::int64_t start,
                           std::int64_t end)
{
    walk.texts.spend(track.name);
    walk.texts.spend(track.enabled);
    track_position position;
    position.track = track.label;
    position.track_name = track.name;
    position.seq_start_frame = start + walk.sequence_start_frame;
    position.seq_end_frame = end - 1 + walk.sequence_start_frame;
    position.seq_length = end - start;
    return position;
}

std::string required_text(const track_context& track, xml_node item, std::string_view child)
{
    if (auto text = item.text_of(child))
        return std::move(*text);
    throw analysis_error(description_of(track, item) + " has no \"" + std::string(child)
                         + "\" element. Check it in the timeline, then export the document again.");
}

std::optional<std::int64_t> position_or_neighbour(std::int64_t own, xml_node beside, std::string_view name)
{
    if (own != -1)
        return own;
    const auto text = beside.text_of(name);
    return text ? std::optional(frame_number(*text)) : std::nullopt;
}

std::string description_of(const track_context& track, xml_node item)
{
    std::string kind(item.name());
    if (kind.ends_with("item")) // clipitem, generatoritem, transitionitem
        kind.resize(kind.size() - 4);
    const auto name = item.text_of("name");
    return (name ? "The " + kind + ' ' + in_quotes(*name) : "A " + kind + " without a name") + " on track "
        + track.label;
}

} // namespace tallyframe
