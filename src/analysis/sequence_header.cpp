// SPDX-License-Identifier: MIT
#include "analysis/sequence_header.h"

#include "analysis/frame_numbers.h"
#include "run/failures.h"
#include "text/leading_numbers.h"
#include "text/letter_case.h"
#include "text/visible_text.h"

#include <string>
#include <string_view>

namespace tallyframe {

namespace {

constexpr const char* no_timebase_message = "This sequence has no timebase";

std::string required_text(xml_node sequence, std::string_view path)
{
    if (auto text = sequence.text_of(path))
        return std::move(*text);
    const auto name = sequence.text_of("name");
    throw analysis_error("The sequence " + (name ? in_quotes(*name) + ' ' : "") + "has no \""
                         + std::string(path)
                         + "\" element. Export it again from the program that it was cut in.");
}

frame_rate rate_of(xml_node sequence)
{
    std::string ntsc = upper_cased(sequence.text_of("timecode/rate/ntsc").value_or("FALSE"));
    const auto timebase_text = sequence.text_of("timecode/rate/timebase");
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

} // namespace

std::int64_t read_sequence_header(xml_node sequence, analysis_result& result)
{
    result.sequence_name = required_text(sequence, "name");
    result.sequence_duration = frame_number(required_text(sequence, "duration"));
    result.seq_fcp_rate = rate_of(sequence);
    const std::int64_t start_frame = frame_number(required_text(sequence, "timecode/frame"));
    result.seq_displayformat = displayformat_of(sequence);
    result.sequence_width = sequence.text_of("media/video/format/samplecharacteristics/width");
    result.sequence_height = sequence.text_of("media/video/format/samplecharacteristics/height");
    result.seq_samplerate = sequence.text_of("media/audio/format/samplecharacteristics/samplerate");
    return start_frame;
}

} // namespace tallyframe
