// SPDX-License-Identifier: MIT
#include "analysis/transitions.h"

#include "analysis/effect_catalogue.h"
#include "analysis/frame_numbers.h"

namespace tallyframe {

transition_record transition_record_of(const analysis_walk& walk, const track_context& track,
                                       xml_node transitionitem)
{
    const std::int64_t start = frame_number(required_text(track, transitionitem, "start"));
    const std::int64_t end = frame_number(required_text(track, transitionitem, "end"));

    transition_record record;
    record.place = position_of(walk, track, start, end);
    if (const auto category = transitionitem.text_of("effect/effectcategory"))
        record.name = *category + " ▸ ";
    record.name += transitionitem.text_of("effect/name").value_or("");
    record.apple = is_apple_transition(record.name);
    record.enabled = track.enabled;
    return record;
}

} // namespace tallyframe
