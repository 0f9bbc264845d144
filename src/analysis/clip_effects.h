// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// An `effect` of a clip item with the `filter` element around it.
struct clip_effect {
    xml_node filter;
    xml_node effect;
};

/// Whether a child of that name holds exactly that text.
bool has_child_with_text(xml_node element, std::string_view child_name, std::string_view text);

/// First parameter of an effect with that `parameterid`, or none.
xml_node parameter_of(xml_node effect, std::string_view parameterid);

/// Whether the `filter` element is switched off.
bool is_switched_off(xml_node filter);

/// First `value` of the time-remap parameter with that id ("speed", "reverse"), or none.
xml_node time_remap_value(const std::vector<clip_effect>& effects, std::string_view parameterid);

} // namespace tallyframe
