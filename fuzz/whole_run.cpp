// SPDX-License-Identifier: MIT
// A run without a window, from the bytes of a document to the workbook on the disk: each entry of the menu
// with all that the options ask for. What stands before the first "<" of the input chooses the options;
// nothing there means the defaults.
#include "fuzz/promise.h"
#include "fuzz/workbook_reader.h"
#include "report/column_switches.h"
#include "run/failures.h"
#include "run/gui_mode.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tallyframe::fuzz {

namespace {

/// The bytes that choose; 0, which stands for a default, once they are used up.
class option_bytes {
public:
    explicit option_bytes(std::string_view bytes) : rest_(bytes) { }

    std::uint8_t byte()
    {
        if (rest_.empty())
            return 0;
        const auto first = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return first;
    }

    std::int32_t number()
    {
        std::uint32_t bits = 0;
        for (int i = 0; i < 4; ++i)
            bits = bits << 8 | byte();
        return static_cast<std::int32_t>(bits);
    }

private:
    std::string_view rest_;
};

struct run_choices {
    report_scope scope = report_scope::video_audio;
    std::uint8_t unticked = 0; ///< a bit a track
    report_options options;
};

void choose_sheets(option_bytes& bytes, report_options& options)
{
    const std::uint8_t left_out = bytes.byte();
    const std::array<bool report_options::*, 7> sheets = {
        &report_options::markers_sheets,    &report_options::generators_sheet,
        &report_options::transitions_sheet, &report_options::filters_sheet,
        &report_options::motion_sheet,      &report_options::summary_sheet,
        &report_options::reel_sheets};
    for (std::size_t i = 0; i < sheets.size(); ++i)
        options.*sheets[i] = (left_out >> i & 1) == 0;
}

void choose_columns(option_bytes& bytes, report_options& options)
{
    const auto states = static_cast<std::uint32_t>(bytes.number());
    if (states == 0)
        return;
    column_layout layout{.name = "chosen", .checkboxes = {}};
    for (std::size_t i = 0; i < all_column_switches.size(); ++i)
        layout.checkboxes.push_back({std::string(all_column_switches[i].title), states >> i & 1 ? 1 : 0});
    options.layouts_array = {layout};
    options.layout = layout.name;
}

std::vector<time_format> chosen_formats(std::uint8_t choice)
{
    if (choice == 0)
        return {time_format::timecode};
    std::vector<time_format> formats;
    for (std::size_t i = 0; i < time_formats.size(); ++i) {
        if ((choice >> i & 1) != 0)
            formats.push_back(time_formats[i].format);
    }
    if ((choice & 0x20) != 0)
        std::ranges::reverse(formats);
    if ((choice & 0x40) != 0)
        formats.insert(formats.end(), formats.begin(), formats.end());
    return formats;
}

void choose_times(option_bytes& bytes, report_options& options)
{
    options.timeline_time_columns = chosen_formats(bytes.byte());
    options.source_time_columns = chosen_formats(bytes.byte());
    time_adjustments& frames = options.adjustments;
    for (std::int64_t* adjustment : {&frames.hhmmssff_adj, &frames.clock_adj, &frames.frames_adj,
                                     &frames.feetframes_adj, &frames.seconds_adj})
        *adjustment = bytes.number();
}

run_choices chosen(option_bytes bytes)
{
    run_choices choices;
    constexpr std::array<report_scope, 3> scopes = {report_scope::video_audio, report_scope::video,
                                                    report_scope::audio};
    const std::uint8_t flags = bytes.byte();
    choices.scope = scopes[flags % scopes.size()];
    choices.options.report_enabled_only = (flags & 0x40) != 0;
    choices.options.skip_video_clip_audio = (flags & 0x80) != 0;
    choices.unticked = bytes.byte();
    choose_sheets(bytes, choices.options);
    choose_columns(bytes, choices.options);
    choose_times(bytes, choices.options);
    return choices;
}

void untick(std::uint8_t unticked, track_checkboxes& checkboxes)
{
    if (!checkboxes.current)
        return;
    for (std::size_t i = 0; i < checkboxes.current->size(); ++i) {
        if ((unticked >> i % 8 & 1) != 0)
            (*checkboxes.current)[i] = 0;
    }
}

/// A file of this process among the temporary ones, gone at the end.
class scratch_file {
public:
    scratch_file() = default;
    ~scratch_file() { std::filesystem::remove(path_); }
    scratch_file(const scratch_file&) = delete;
    scratch_file& operator=(const scratch_file&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::vector<std::uint8_t> bytes() const
    {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path path_ =
        std::filesystem::temp_directory_path() / ("tallyframe-fuzz-" + std::to_string(getpid()) + ".xls");
};

struct headless_run {
    no_diagnostics out = {};
    no_progress display = {};
    no_alerts alert = {};
    no_sequence_menu menu = {};
    session_services services = {out, display, alert, menu};
    report_session session = {};

    void report(const catalogue_entry& entry, const run_choices& choices, const scratch_file& file)
    {
        get_info_from_sequence_or_bins(session, entry.uuid, services);
        untick(choices.unticked, session.video_tracks_table_checkboxes);
        untick(choices.unticked, session.audio_tracks_table_checkboxes);
        save_excel(session.analysis, session.video_tracks_table_checkboxes,
                   session.audio_tracks_table_checkboxes, choices.options, file.path(), {out, display});
        read_workbook(file.bytes());
    }
};

void run(std::string_view input)
{
    static const scratch_file file;
    const std::size_t document = std::min(input.find('<'), input.size());
    const run_choices choices = chosen(option_bytes(input.substr(0, document)));
    headless_run run;
    run.session.import_video_audio_preference = choices.scope;
    get_sequences_names(run.session, std::string(input.substr(document)), run.services);
    for (const catalogue_entry& entry : run.session.menu) {
        if (!entry.is_separator())
            run.report(entry, choices, file);
    }
}

} // namespace

} // namespace tallyframe::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tallyframe;
    gui_mode = false;
    try {
        fuzz::run({reinterpret_cast<const char*>(data), size});
    } catch (const failure&) { // a refusal with a sentence is a good answer; anything else is a finding
    }
    return 0;
}
