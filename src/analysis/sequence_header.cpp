// SPDX-License-Identifier: MIT
#include "analysis/sequence_header.h"

#include "analysis/frame_numbers.h"
#include "run/account.h"
#include "run/failures.h"
#include "text/leading_numbers.h"
#include "text/letter_case.h"
#include "text/visible_text.h"
#include "timecode/to_timecode.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace tallyframe {

namespace {

constexpr const char* no_timebase_message = "This sequence has no timebase";

/// The facts of one sequence, as they stand in it or as they are supplied.
struct header_reader {
    xml_node sequence;
    const std::optional<stand_ins>& missing;
    account& losses;

    /// Notes that something was supplied: "its name, Sequence 2".
    template <class Value>
    Value supplied(std::string_view what, const Value& value) const
    {
        losses.add(loss_kind::supplied_facts, 1, fmt::format("its {}: {}", what, value));
        return value;
    }
};

[[noreturn]] void refuse(const header_reader& header, std::string_view what)
{
    auto name = header.sequence.text_of("name");
    if (!name && header.missing)
        name = header.missing->name;
    throw analysis_error("The sequence " + (name ? in_quotes(*name) + ' ' : "") + "has " + std::string(what)
                         + ". Export it again from the program that it was cut in.");
}

[[noreturn]] void refuse_without(const header_reader& header, std::string_view path)
{
    refuse(header, "no \"" + std::string(path) + "\" element");
}

std::string name_of(const header_reader& header)
{
    if (auto name = header.sequence.text_of("name"))
        return std::move(*name);
    if (!header.missing)
        refuse_without(header, "name");
    return header.supplied("name", header.missing->name);
}

/// The last frame that an item of any track says to end at, as the sequence counts them from 0.
std::int64_t end_of_items(xml_node sequence)
{
    std::int64_t end = 0;
    for (const char* items : {"media/video/track/clipitem/end", "media/video/track/generatoritem/end",
                              "media/audio/track/clipitem/end"}) {
        for (const xml_node item_end : sequence.all(items))
            end = std::max(end, frame_number(item_end.text()));
    }
    return end;
}

std::int64_t duration_of(const header_reader& header)
{
    if (const auto duration = header.sequence.text_of("duration"))
        return frame_number(*duration);
    if (!header.missing)
        refuse_without(header, "duration");
    return header.supplied("duration", end_of_items(header.sequence));
}

/// The element "rate" to go by; none where there is none.
xml_node rate_element(const header_reader& header)
{
    const xml_node rate = header.sequence.first("timecode/rate");
    if (!header.missing || rate.child("timebase"))
        return rate;
    const xml_node own = header.sequence.child("rate");
    if (!own.child("timebase"))
        refuse(header, "neither a timecode with a rate nor a rate of its own");
    return own;
}

frame_rate rate_of(const header_reader& header)
{
    const xml_node rate = rate_element(header);
    std::string ntsc = upper_cased(rate.text_of("ntsc").value_or("FALSE"));
    const auto timebase_text = rate.text_of("timebase");
    if (!timebase_text)
        throw analysis_error(no_timebase_message);
    std::int64_t timebase = truncated_number(*timebase_text);
    switch (timebase) {
    case 23:
        timebase = 24;
        ntsc = "TRUE";
        break;
    case 25:
        ntsc = "FALSE";
        break;
    case 29: // 30 fps, not 29.97: older lists count so
        timebase = 30;
        ntsc = "FALSE";
        break;
    case 59:
        timebase = 60;
        ntsc = "TRUE";
        break;
    default:
        break;
    }
    const frame_rates_row* row = find_frame_rate(ntsc, timebase);
    if (row == nullptr)
        throw analysis_error(no_timebase_message);
    if (rate.parent() == header.sequence)
        header.supplied("rate", row->fcp_rate.frames_per_second);
    return row->fcp_rate;
}

display_format displayformat_of(xml_node sequence)
{
    if (const auto displayformat = sequence.text_of("timecode/displayformat"))
        return display_format_of(*displayformat);
    const auto timecode = sequence.text_of("timecode/string");
    return timecode && timecode->find(';') != std::string::npos ? display_format::drop_frame
                                                                : display_format::non_drop_frame;
}

std::int64_t first_frame_of(const header_reader& header, const analysis_result& result)
{
    if (const auto frame = header.sequence.text_of("timecode/frame"))
        return frame_number(*frame);
    if (!header.missing)
        refuse_without(header, "timecode/frame");
    const std::optional<double> start =
        to_frames(header.sequence.text_of("timecode/string"), result.seq_fcp_rate->frames_per_second,
                  result.seq_displayformat);
    return header.supplied("first frame", rounded_frames(start.value_or(0)));
}

} // namespace

std::int64_t read_sequence_header(xml_node sequence, const std::optional<stand_ins>& missing,
                                  analysis_result& result)
{
    const header_reader header{sequence, missing, result.losses};
    result.sequence_name = name_of(header);
    result.sequence_duration = duration_of(header);
    result.seq_fcp_rate = rate_of(header);
    result.seq_displayformat = displayformat_of(sequence);
    result.sequence_width = sequence.text_of("media/video/format/samplecharacteristics/width");
    result.sequence_height = sequence.text_of("media/video/format/samplecharacteristics/height");
    result.seq_samplerate = sequence.text_of("media/audio/format/samplecharacteristics/samplerate");
    return first_frame_of(header, result);
}

} // namespace tallyframe
