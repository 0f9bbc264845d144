// SPDX-License-Identifier: MIT
#include "analysis/clip_effects.h"

#include "text/letter_case.h"

#include <algorithm>

namespace tallyframe {

bool has_child_with_text(xml_node element, std::string_view child_name, std::string_view text)
{
    return std::ranges::any_of(element.children(), [child_name, text](xml_node child) {
        return child.has_name(child_name) && child.text_is(text);
    });
}

xml_node parameter_of(xml_node effect, std::string_view parameterid)
{
    for (const xml_node child : effect.children()) {
        if (child.has_name("parameter") && has_child_with_text(child, "parameterid", parameterid))
            return child;
    }
    return {};
}

bool is_switched_off(xml_node filter)
{
    const auto enabled = filter.text_of("enabled");
    return enabled && upper_cased(*enabled) == "FALSE";
}

xml_node time_remap_value(const std::vector<clip_effect>& effects, std::string_view parameterid)
{
    for (const clip_effect& each : effects) {
        if (!has_child_with_text(each.effect, "effectid", "timeremap"))
            continue;
        for (const xml_node child : each.effect.children()) {
            if (!child.has_name("parameter") || !has_child_with_text(child, "parameterid", parameterid))
                continue;
            if (const xml_node value = child.child("value"))
                return value;
        }
    }
    return {};
}

} // namespace tallyframe
