// SPDX-License-Identifier: MIT
#include "sheets/media_sheet.h"

#include "media/file_urls.h"
#include "report/time_cells.h"

#include <fmt/format.h>

#include <memory>
#include <utility>

namespace tallyframe {

namespace {

template <auto texts, std::string fact_texts::*text>
cell_value fact(const checked_media& media, const row_context&)
{
    return texts(media).*text;
}

cell_value status(const checked_media& media, const row_context&)
{
    return name_of(media.state);
}

cell_value file_name(const checked_media& media, const row_context&)
{
    return last_path_component(media.use.path());
}

cell_value clip_count(const checked_media& media, const row_context&)
{
    return static_cast<double>(media.use.clip_count);
}

cell_value ranges(const checked_media& media, const row_context&)
{
    return fmt::format("{}", fmt::join(range_texts(media.use), ", "));
}

cell_value missing_frames(const checked_media& media, const row_context&)
{
    return lack_text(media);
}

cell_value bytes(const checked_media& media, const row_context&)
{
    return media.bytes ? cell_value(static_cast<double>(*media.bytes)) : cell_value();
}

cell_value found_at(const checked_media& media, const row_context&)
{
    return media.found ? media.found->string() : std::string();
}

cell_value path_in_document(const checked_media& media, const row_context&)
{
    return media.use.path();
}

using facts = fact_texts;

constexpr fixed_column<checked_media> columns[] = {
    {"Status", 10, true, status},
    {"File Name", 9, true, file_name},
    {"Clips", 5, false, clip_count, cell_kind::whole_number},
    {"Used Ranges", 23, true, ranges},
    {"Missing Frames", 14, true, missing_frames},
    {"Duration", timecode_width, false, fact<texts_of_file, &facts::duration>},
    {"Duration in Document", 20, false, fact<texts_of_document, &facts::duration>},
    {"Rate", 7, false, fact<texts_of_file, &facts::rate>},
    {"Rate in Document", 16, false, fact<texts_of_document, &facts::rate>},
    {"Frame Size", 11, false, fact<texts_of_file, &facts::frame_size>},
    {"Frame Size in Document", 22, false, fact<texts_of_document, &facts::frame_size>},
    {"Start", timecode_width, false, fact<texts_of_file, &facts::start>},
    {"Start in Document", 17, false, fact<texts_of_document, &facts::start>},
    {"Audio Channels", 14, false, fact<texts_of_file, &facts::audio_channels>},
    {"Audio Channels in Document", 26, false, fact<texts_of_document, &facts::audio_channels>},
    {"Bytes", 14, false, bytes, cell_kind::whole_number},
    {"Found at", 9, true, found_at},
    {"File Path", 9, true, path_in_document},
};
constexpr std::size_t bytes_column = 15;

row_look look_of_state(media_state state)
{
    const bool is_complete = state >= media_state::differs;
    return is_complete ? row_look{text_color::black, text_color::black}
                       : row_look{text_color::red, text_color::red};
}

} // namespace

sheet sheet_of_checked_media(std::vector<checked_media> files, const sequence_clock& clock)
{
    const auto kept = std::make_shared<const std::vector<checked_media>>(std::move(files));
    table_sheet<checked_media> table = {
        .name = std::string(media_check_name), .columns = columns_of(columns), .records = {}, .looks = {}};
    for (const checked_media& media : *kept) {
        table.records.push_back(&media);
        table.looks.push_back(look_of_state(media.state));
    }
    if (!kept->empty() && kept->front().state != media_state::unchecked)
        table.total = total_line{.column = bytes_column, .sum = std::to_string(totals_of(*kept).bytes)};
    sheet made = sheet_of(std::move(table), clock);
    made.cell = [kept, cell = std::move(made.cell)](std::size_t row, std::size_t column) {
        return cell(row, column); // owns the records: the sheet lives on its own
    };
    return made;
}

void add_media_sheet(const report_frame& frame, growing_report& report)
{
    media_use_list uses;
    uses.add(frame.analysis, frame.rows.clip_data_array);
    report.add(sheet_of_checked_media(
        check_media(uses.finished(), frame.options.media_handles, frame.inspection), frame.clock));
}

} // namespace tallyframe
