// SPDX-License-Identifier: MIT
#include "analysis/filters_and_motion.h"

#include "analysis/clip_effects.h"
#include "analysis/effect_catalogue.h"
#include "run/failures.h"
#include "timecode/frame_rates.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace tallyframe {

namespace {

std::string name_of(xml_node element)
{
    return element.child("name").text();
}

/// A value that is present and is not `neutral`.
bool differs(xml_node value, std::string_view neutral)
{
    return value && !value.text_is(neutral);
}

/// First ".//value/CHILD" of a parameter.
xml_node value_part(xml_node parameter, std::string_view child_name)
{
    for (xml_node node = next_in_document(parameter, parameter); node;
         node = next_in_document(node, parameter)) {
        if (!node.has_name("value"))
            continue;
        if (const xml_node part = node.child(child_name))
            return part;
    }
    return {};
}

bool point_differs(xml_node parameter, std::string_view neutral_horiz, std::string_view neutral_vert)
{
    return differs(value_part(parameter, "horiz"), neutral_horiz)
        || differs(value_part(parameter, "vert"), neutral_vert);
}

bool is_cropped(xml_node effect)
{
    for (xml_node node = next_in_document(effect, effect); node; node = next_in_document(node, effect)) {
        if (node.has_name("value") && !node.text_is("0"))
            return true;
    }
    return false;
}

bool is_distorted(xml_node effect)
{
    struct corner {
        std::string_view parameterid, horiz, vert;
    };
    constexpr std::array<corner, 4> neutral_corners = {{
        {"ulcorner", "-0.5", "-0.5"},
        {"urcorner", "0.5", "-0.5"},
        {"lrcorner", "0.5", "0.5"},
        {"llcorner", "-0.5", "0.5"},
    }};
    return std::ranges::any_of(neutral_corners,
                               [effect](const corner& each) {
                                   return point_differs(parameter_of(effect, each.parameterid), each.horiz,
                                                        each.vert);
                               })
        || differs(parameter_of(effect, "aspect").first_descendant("value"), "0");
}

/// Gives a keyframed scale all its values in one text.
void join_keyframes(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                    xml_node scale)
{
    if (!scale.child("keyframe"))
        return;
    std::string joined;
    bool is_first = true;
    for (const xml_node value : scale.all("keyframe/value")) {
        if (!is_first)
            joined += "%, ";
        joined += value.text();
        is_first = false;
    }
    const xml_node value = scale.child("value");
    if (!value)
        throw analysis_error(description_of(track, clip.element)
                             + " has a keyframed scale without a \"value\" element. Set its scale anew, then"
                               " export the document again.");
    walk.additions.join_scale(value, std::move(joined));
}

/// The names of the records that a basic motion effect gives: scale, rotation, centre, anchor.
std::vector<std::string> basic_motion_names(const analysis_walk& walk, const track_context& track,
                                            const clip_item& clip, xml_node effect)
{
    std::vector<std::string> names;
    if (const xml_node scale = parameter_of(effect, "scale")) {
        join_keyframes(walk, track, clip, scale);
        if (const xml_node value = scale.child("value")) {
            if (const std::string text = walk.additions.text_of(value); text != "100")
                names.push_back(name_of(scale) + " (" + text + "%)");
        }
    }
    if (const xml_node rotation = parameter_of(effect, "rotation");
        differs(rotation.first_descendant("value"), "0"))
        names.push_back(name_of(rotation));
    for (const std::string_view parameterid : {"center", "centerOffset"}) {
        if (const xml_node point = parameter_of(effect, parameterid); point_differs(point, "0", "0"))
            names.push_back(name_of(point));
    }
    return names;
}

std::string time_remap_name(xml_node effect, double speed)
{
    const double whole = rounded(speed);
    return fmt::format("{} ({:.0f}%)", name_of(effect), whole == 0 ? 0 : whole); // no "-0"
}

/// The names of the records that a motion effect gives. Only effects of the last kind heed their switch.
std::vector<std::string> motion_names(const analysis_walk& walk, const track_context& track,
                                      const clip_item& clip, const clip_effect& each, double speed)
{
    const xml_node effect = each.effect;
    const std::string effectid = effect.child("effectid").text();
    if (effectid == "basic")
        return basic_motion_names(walk, track, clip, effect);
    if (effectid == "timeremap")
        return {time_remap_name(effect, speed)};

    const bool is_reported = effectid == "crop" ? is_cropped(effect)
        : effectid == "deformation"             ? is_distorted(effect)
        : effectid == "opacity"                 ? differs(effect.first_descendant("value"), "100")
                                                : !is_switched_off(each.filter);
    return is_reported ? std::vector{name_of(effect)} : std::vector<std::string>();
}

/// The fields that a filter or motion record takes from its clip.
template <class Record>
Record record_on(const analysis_walk& walk, const track_context& track, const clip_item& clip)
{
    walk.texts.spend(clip.name);
    Record record;
    record.place = position_of(walk, track, clip.positions.start, clip.positions.end);
    record.enabled = clip.enabled;
    record.clip_name = clip.name;
    return record;
}

} // namespace

void add_filters(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                 std::vector<filter_record>& records)
{
    for (const clip_effect& each : clip.effects) {
        if (!has_child_with_text(each.effect, "effecttype", "filter") || is_switched_off(each.filter))
            continue;
        auto record = record_on<filter_record>(walk, track, clip);
        record.name = name_of(each.effect);
        const auto effectid = each.effect.text_of("effectid");
        record.apple = effectid && is_apple_filter(*effectid);
        records.push_back(std::move(record));
    }
}

void add_motion(const analysis_walk& walk, const track_context& track, const clip_item& clip, double speed,
                std::vector<motion_record>& records)
{
    for (const clip_effect& each : clip.effects) {
        if (!has_child_with_text(each.effect, "effecttype", "motion"))
            continue;
        for (std::string& name : motion_names(walk, track, clip, each, speed)) {
            auto record = record_on<motion_record>(walk, track, clip);
            record.name = std::move(name);
            records.push_back(std::move(record));
        }
    }
}

} // namespace tallyframe
