// SPDX-License-Identifier: MIT
#include "analysis/generators.h"

#include "analysis/clip_effects.h"
#include "analysis/clip_listing.h"
#include "analysis/frame_numbers.h"
#include "analysis/title_text.h"
#include "run/failures.h"

#include <fmt/ranges.h>

#include <string_view>
#include <unordered_set>

namespace tallyframe {

namespace {

constexpr std::string_view line_separator = "  |  ";

/// Unlike a clip, a generator has no other way to tell where it starts or ends.
std::int64_t generator_position(const track_context& track, xml_node item, xml_node beside,
                                std::string_view name)
{
    const std::int64_t own = frame_number(required_text(track, item, name));
    if (const auto position = position_or_neighbour(own, beside, name))
        return *position;
    throw analysis_error(description_of(track, item) + " has the " + std::string(name)
                         + " -1, and nothing beside it tells where that is. Check it in the timeline, then "
                           "export the document again.");
}

std::string type_of(xml_node item)
{
    for (const std::string_view path : {"name", "effect/name"}) {
        if (auto type = item.text_of(path))
            return std::move(*type);
    }
    return "Unknown";
}

/// Texts that may repeat; each is kept once, where it came first.
std::string joined_once(const std::vector<std::string>& texts)
{
    std::unordered_set<std::string_view> seen;
    std::string joined;
    for (const std::string& text : texts) {
        if (!seen.insert(text).second)
            continue;
        if (seen.size() > 1)
            joined += ", ";
        joined += text;
    }
    return joined;
}

/// Sets font and text from the parameters that titles have: "str" and its kind, and those named "Font".
void read_title_parameters(xml_node item, generator_record& record)
{
    std::vector<std::string> fonts;
    for (const xml_node parameter : item.all("effect/parameter")) {
        const xml_node value = parameter.child("value");
        if (!value)
            continue;
        const std::string id = parameter.child("parameterid").text();
        if (id == "s" || id == "str" || id == "str1")
            record.text += value.text();
        else if (id == "str2")
            record.text.append(line_separator).append(value.text());
        else if (parameter.child("name").text_is("Font"))
            fonts.push_back(value.text());
    }
    record.font = joined_once(fonts);
}

} // namespace

generator_record generator_record_of(const analysis_walk& walk, const track_context& track,
                                     xml_node generatoritem)
{
    const std::int64_t start =
        generator_position(track, generatoritem, generatoritem.previous_element(), "start");
    const std::int64_t end = generator_position(track, generatoritem, generatoritem.next_element(), "end");

    generator_record record;
    record.place = position_of(walk, track, start, end);
    if (const xml_node name = generatoritem.first_descendant("name"))
        record.name = name.text();
    record.type = type_of(generatoritem);
    read_title_parameters(generatoritem, record);
    record.enabled = track.enabled; // that of the item itself does not count
    return record;
}

generator_record graphic_record_of(const analysis_walk& walk, const track_context& track,
                                   const clip_item& clip)
{
    title_text title;
    for (const clip_effect& each : clip.effects) {
        if (!has_child_with_text(each.effect, "effectid", graphic_path))
            continue;
        if (std::string name = each.effect.child("name").text(); !name.empty())
            title.texts.push_back(std::move(name));
    }
    for (const clip_effect& each : clip.effects) {
        for (const xml_node parameter : each.effect.all("parameter")) {
            const xml_node value = parameter.child("value");
            if (value && has_child_with_text(parameter, "name", "Source Text"))
                read_source_text(walk.additions.text_of(value), title);
        }
    }
    generator_record record = generated_clip_record_of(walk, track, clip, graphic_path);
    record.font = title.font;
    record.text = fmt::format("{}", fmt::join(title.texts, line_separator));
    return record;
}

} // namespace tallyframe
