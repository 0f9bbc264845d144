// SPDX-License-Identifier: MIT
#include "media/media_files.h"

#include "document/text_budget.h"
#include "media/file_urls.h"
#include "text/ascii_text.h"
#include "text/leading_numbers.h"
#include "text/letter_case.h"
#include "text/trimmed.h"
#include "timecode/to_timecode.h"

#include <fmt/format.h>

#include <algorithm>

namespace tallyframe {

namespace {

std::string upper_cased_text_of(xml_node element, std::string_view path, std::string_view otherwise)
{
    const auto text = element.text_of(path);
    return text ? upper_cased(*text) : std::string(otherwise);
}

/// "1920 × 1080"; nothing where one of the two is not there or empty.
std::optional<std::string> frame_size_of(xml_node file)
{
    const auto width = file.text_of("media/video/samplecharacteristics/width");
    const auto height = file.text_of("media/video/samplecharacteristics/height");
    if (!width || !height || trimmed(*width).empty() || trimmed(*height).empty())
        return std::nullopt;
    return *width + " × " + *height;
}

/// Exporters write an `audio` element for all sound or one for each track of it.
std::optional<std::int64_t> audio_channels_of(xml_node file)
{
    std::optional<std::int64_t> channels;
    for (const xml_node count : file.all("media/audio/channelcount"))
        channels = channels.value_or(0) + std::clamp<std::int64_t>(leading_integer(count.text()), 0, 1024);
    return channels;
}

/// Sets rate and type; returns the row of the rates table that the file matches, or none.
const frame_rates_row* read_rate(file_record& record, xml_node file, std::optional<frame_rate> seq_fcp_rate)
{
    const auto timebase_text = file.text_of("rate/timebase");
    const std::int64_t timebase = timebase_text ? leading_integer(*timebase_text) : 0;
    const std::string ntsc = upper_cased_text_of(file, "rate/ntsc", "FALSE");

    const frame_rates_row* row = nullptr;
    if (timebase_text)
        row = find_frame_rate(ntsc, timebase);
    else if (seq_fcp_rate)
        row = find_frame_rate(seq_fcp_rate->frames_per_second);

    if (row != nullptr) {
        record.fcp_rate = row->fcp_rate;
        record.type = row->type;
    } else if (timebase_text) {
        const bool is_floating = ntsc == "TRUE";
        record.fcp_rate = frame_rate{static_cast<double>(timebase) * (is_floating ? 0.999 : 1), is_floating};
        record.type = fmt::format("Non-Standard ({} fps)", record.fcp_rate->frames_per_second);
    }
    return row;
}

/// A timecode that counts the media's frames: where the media starts, and from which reel it comes.
void read_source_timecode(file_record& record, xml_node timecode, bool is_audio_only,
                          const frame_rates_row* row)
{
    const auto timebase_text = timecode.text_of("rate/timebase");
    const std::int64_t timebase = timebase_text ? leading_integer(*timebase_text) : 0;
    if (const auto frame = timecode.text_of("frame")) {
        record.timecode_frame = static_cast<double>(leading_integer(*frame));
    } else if (const auto text = timecode.text_of("string")) {
        const double own_rate = record.fcp_rate ? record.fcp_rate->frames_per_second : 0;
        const double rate = timebase > 0 ? static_cast<double>(timebase) : own_rate;
        record.timecode_frame = to_frames(*text, rate, record.displayformat).value_or(record.timecode_frame);
    }
    if (is_audio_only && record.timecode_frame == 0 && record.displayformat == display_format::drop_frame)
        record.displayformat = display_format::non_drop_frame;
    if (row != nullptr && timebase > 0)
        record.timecode_frame =
            record.timecode_frame * static_cast<double>(row->timebase) / static_cast<double>(timebase);
    if (const auto reel = timecode.text_of("reel/name"))
        record.reel_name = to_ascii(*reel);
}

void read_timecodes(file_record& record, xml_node file, const frame_rates_row* row,
                    std::vector<std::string>& reel_names, text_budget& texts)
{
    const auto timecodes = file.all("timecode");
    const bool is_audio_only = !file.first("media/video");
    bool found = false;
    for (const xml_node timecode : timecodes) {
        const auto source = timecode.text_of("source");
        if (timecodes.size() == 1 || !source || *source == "source") {
            read_source_timecode(record, timecode, is_audio_only, row);
        } else if (*source == "sound") {
            if (const auto roll = timecode.text_of("reel/name"))
                record.roll_name = to_ascii(*roll);
            continue;
        } else if (!found) {
            if (const auto reel = timecode.text_of("reel/name"))
                record.reel_name = to_ascii(*reel);
        } else {
            continue;
        }
        found = true;
        if (record.reel_name) {
            texts.spend(record.reel_name);
            reel_names.push_back(*record.reel_name);
        }
    }
}

void read_path(file_record& record, xml_node file)
{
    if (const auto media_source = file.text_of("mediaSource")) {
        record.path = *media_source;
        return;
    }
    const auto pathurl = file.text_of("pathurl");
    record.path = pathurl ? path_of_url(*pathurl) : std::string();
    record.video_format = "";
    record.audio_format = "";
}

void spend(text_budget& texts, const file_record& record)
{
    texts.spend(record.id);
    for (const auto* text :
         {&record.frame_size, &record.samplerate, &record.reel_name, &record.roll_name, &record.path})
        texts.spend(*text);
}

file_record read_file(xml_node file, std::optional<frame_rate> seq_fcp_rate,
                      std::vector<std::string>& reel_names, text_budget& texts)
{
    file_record record;
    record.id = file.attribute("id").value_or("");
    if (const auto duration = file.text_of("duration"))
        record.src_duration = leading_integer(*duration);
    record.frame_size = frame_size_of(file);
    record.samplerate = file.text_of("media/audio/samplecharacteristics/samplerate");
    record.audio_channels = audio_channels_of(file);
    const frame_rates_row* row = read_rate(record, file, seq_fcp_rate);
    if (const xml_node frame = file.first_descendant("frame"))
        record.timecode_frame = static_cast<double>(leading_integer(frame.text()));
    if (const xml_node displayformat = file.first_descendant("displayformat"))
        record.displayformat = display_format_of(displayformat.text());
    read_timecodes(record, file, row, reel_names, texts);
    read_path(record, file);
    spend(texts, record);
    return record;
}

} // namespace

void file_catalogue::add(file_record file)
{
    if (first_by_id_.try_emplace(file.id, records_.size()).second)
        records_.push_back(std::move(file));
}

const file_record* file_catalogue::find(std::string_view id) const
{
    const auto found = first_by_id_.find(std::string(id));
    return found == first_by_id_.end() ? nullptr : &records_[found->second];
}

files_info get_files_info(const std::vector<xml_node>& file_elements, std::optional<frame_rate> seq_fcp_rate,
                          progress& display)
{
    files_info info;
    text_budget texts;
    for (const xml_node file : file_elements) {
        display.advance(media_files_message);
        if (file.has_children())
            info.files.add(read_file(file, seq_fcp_rate, info.reel_names, texts));
    }
    return info;
}

} // namespace tallyframe
