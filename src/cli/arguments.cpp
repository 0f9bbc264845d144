// SPDX-License-Identifier: MIT
#include "cli/arguments.h"

#include "cli/help_text.h"
#include "cli/known_names.h"
#include "platform/application.h"
#include "report/time_cells.h"
#include "sheets/sheet_kinds.h"
#include "text/trimmed.h"
#include "text/visible_text.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <system_error>

namespace tallyframe::cli {

namespace {

/// The texts of the flags that need more than CLI11's own conversion.
struct raw_report_flags {
    std::size_t item = 0;
    std::string sequence;
    bool bins = false;
    bool all = false;
    std::string scope;
    std::string figures;
    std::string tracks;
    std::string timeline_columns;
    std::string source_columns;
    std::vector<std::string> adjustments;
    std::string columns;
    std::string thumbnails;
    std::vector<std::string> media_map;
    std::string handles;
    std::string memory;
};

struct color_flag {
    const char* name;
    std::string report_options::*color;
    const char* help;
};

constexpr color_flag color_flags[] = {
    {"--video-color", &report_options::video_row_color, "Text color of video rows (blue)"},
    {"--audio-color", &report_options::audio_row_color, "Text color of audio rows (green)"},
    {"--marker-color", &report_options::marker_row_color, "Text color of marker rows (gray)"},
};

constexpr const char* unidentified_help = "Sequences without an identifier too, behind the others";

/// `all_of_them`: what the command does with every entry.
void add_item_flags(CLI::App& report, raw_report_flags& raw, report_request& request, const char* all_of_them)
{
    constexpr const char* group = "What to report";
    auto* item = report.add_option("--item", raw.item, "Entry of the document by its position in `list`");
    auto* sequence = report.add_option("--sequence", raw.sequence, "Sequence by its identifier in `list`");
    auto* bins = report.add_flag("--bins", raw.bins, "The clips of the bins");
    auto* all = report.add_flag("--all", raw.all, all_of_them);
    const std::vector<CLI::Option*> choices = {item, sequence, bins, all};
    for (CLI::Option* choice : choices) {
        choice->group(group);
        for (CLI::Option* other : choices) {
            if (other != choice)
                choice->excludes(other);
        }
    }
    item->option_text("N");
    bins->option_text(" ");
    all->option_text(" ");
    sequence->option_text("UUID");
    report.add_flag("--unidentified", request.unidentified, unidentified_help)->group(group);
    report.add_option("--scope", raw.scope, "video+audio (default), video or audio")
        ->option_text("SCOPE")
        ->group(group);
    report.add_option("--tracks", raw.tracks, "Only these tracks, such as V1,V2,A1; none for no track")
        ->option_text("LIST")
        ->group(group);
}

void add_content_flags(CLI::App& report, raw_report_flags& raw, report_options& options)
{
    constexpr const char* columns_group = "Columns of the clips";
    report
        .add_option("--timeline-columns", raw.timeline_columns,
                    "Time formats for the timeline: Timecode, Clock, Frames, Feet+Frames, Seconds (Timecode)")
        ->option_text("LIST")
        ->group(columns_group);
    report.add_option("--source-columns", raw.source_columns, "The same for the source media (Timecode)")
        ->option_text("LIST")
        ->group(columns_group);
    report
        .add_option("--adjust", raw.adjustments,
                    "Frames to add to timeline times in one format, such as Timecode=+1; may be repeated")
        ->option_text("FORMAT=N")
        ->group(columns_group)
        ->allow_extra_args(false);
    report
        .add_option("--columns", raw.columns,
                    "Only these columns, such as \"Track,Enabled,Sequence In\"; clip names always show")
        ->option_text("LIST")
        ->group(columns_group);

    constexpr const char* rows_group = "Rows";
    report.add_flag("--enabled-only", options.report_enabled_only, "Only what is enabled")->group(rows_group);
    report
        .add_flag("--skip-video-audio", options.skip_video_clip_audio,
                  "No audio clips whose media file is a video clip's too")
        ->group(rows_group);
    report
        .add_option("--figures", raw.figures,
                    "comparable (default): as in older lists; exact: right where those are not")
        ->option_text("STYLE")
        ->group(rows_group);
    for (const color_flag& flag : color_flags) {
        report.add_option(flag.name, options.*flag.color, flag.help)->option_text("NAME")->group(rows_group);
    }
}

CLI::Option* add_handles_flag(CLI::App& command, raw_report_flags& raw, const char* group)
{
    return command
        .add_option("--handles", raw.handles,
                    "Frames before and after what clips show that a checked media file has to have too (0)")
        ->option_text("N")
        ->group(group);
}

void add_sheet_flags(CLI::App& report, raw_report_flags& raw, report_options& options)
{
    for (const sheet_option& choice : sheet_options())
        report
            .add_flag_callback(
                choice.flag, [&options, &choice] { options.*choice.option = !choice.is_default(); },
                choice.is_default() ? fmt::format("Leave out {}", choice.sheets) : choice.tool_tip)
            ->group("Sheets");
    add_handles_flag(report, raw, "Sheets")->needs(report.get_option("--media-sheet"));
}

constexpr const char* media_group = "Media files";

void add_media_place_flags(CLI::App& command, raw_report_flags& raw, report_request& request)
{
    command
        .add_option("--media-map", raw.media_map,
                    "Look for files of the folder FROM in the folder TO; may be repeated, the longest FROM "
                    "counts first")
        ->option_text("FROM=TO")
        ->group(media_group)
        ->allow_extra_args(false);
    command
        .add_option("--media-search", request.media_search,
                    "Look for files in this folder and below it, by name, by what the document says of them "
                    "and by parent folders; may be repeated")
        ->option_text("DIR")
        ->group(media_group)
        ->allow_extra_args(false);
}

void add_media_flags(CLI::App& report, raw_report_flags& raw, report_request& request)
{
    auto* thumbnails =
        report
            .add_option(
                "--thumbnails", raw.thumbnails,
                "A picture of each clip's in-point, WIDTH pixels wide: 160, 320 or 640, or any from 16 to "
                "1920 (320)")
            ->option_text("[=WIDTH]")
            ->group(media_group);
    report
        .add_flag("--keep-thumbnails", request.options.keep_thumbnails,
                  "Keep the pictures as files, in \"REPORT thumbnails\" beside the workbook")
        ->option_text(" ")
        ->group(media_group)
        ->needs(thumbnails);
    report
        .add_flag_callback(
            "--no-cache", [&request] { request.picture_store = false; },
            "Make each picture anew: none of earlier reports is used, none is kept for later ones")
        ->group(media_group);
    report
        .add_option(
            "--memory", raw.memory,
            "At most so much memory for reading media, such as 800M or 2G (a quarter of the machine's)")
        ->option_text("SIZE")
        ->group(media_group);
    report
        .add_flag_callback(
            "--no-tags", [&request] { request.options.audio_tags = false; },
            "Leave out song titles and the other tags of audio files, and do not read them")
        ->group(media_group);
    add_media_place_flags(report, raw, request);
}

/// The items of "a,b,c" with blanks around them dropped; none for an empty list, and none after a comma at
/// its end.
std::vector<std::string> split_list(std::string_view list)
{
    std::vector<std::string> items;
    if (trimmed(list).empty())
        return items;
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(','), list.size());
        items.emplace_back(trimmed(list.substr(0, comma)));
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return items;
}

item_choice chosen_item(const CLI::App& report, const raw_report_flags& raw)
{
    if (raw.all)
        return {.by = item_choice::kind::all, .uuid = {}};
    if (raw.bins)
        return {.by = item_choice::kind::bins, .uuid = {}};
    if (report.count("--sequence") > 0)
        return {.by = item_choice::kind::uuid, .uuid = raw.sequence};
    if (report.count("--item") > 0)
        return {.by = item_choice::kind::position, .position = raw.item, .uuid = {}};
    return {};
}

std::vector<time_format> chosen_time_formats(const CLI::App& report, const char* flag, std::string_view list)
{
    if (report.count(flag) == 0)
        return {time_format::timecode};
    std::vector<time_format> formats;
    for (const std::string& name : split_list(list))
        formats.push_back(time_format_named(name, flag));
    return formats;
}

void apply_adjustment(const std::string& text, time_adjustments& adjustments)
{
    const std::size_t equals = text.find('=');
    std::string_view number =
        equals == std::string::npos ? std::string_view() : trimmed(std::string_view(text).substr(equals + 1));
    if (number.size() > 1 && number.front() == '+' && number[1] != '-')
        number.remove_prefix(1);
    std::int32_t frames = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), frames);
    if (number.empty() || error != std::errc() || end != number.data() + number.size()) {
        throw usage_error(fmt::format("--adjust: {} is no adjustment. Write a time format, \"=\" and a whole "
                                      "number of frames, such as Timecode=+1.",
                                      visible_name(text)));
    }
    const std::string_view name = trimmed(std::string_view(text).substr(0, equals));
    adjustment_of(adjustments, time_format_named(name, "--adjust")) = frames;
}

void apply_columns(const std::string& list, report_options& options)
{
    constexpr const char* layout_name = "--columns";
    column_layout layout{.name = layout_name, .checkboxes = {}};
    for (const std::string& title : split_list(list))
        layout.checkboxes.push_back({checkbox_titled(title), 1});
    options.layouts_array = {std::move(layout)};
    options.layout = layout_name;
}

void apply_thumbnails(const std::string& width, report_options& options)
{
    std::int64_t pixels = 0;
    const auto [end, error] = std::from_chars(width.data(), width.data() + width.size(), pixels);
    if (error != std::errc() || end != width.data() + width.size() || pixels < narrowest_thumbnail
        || pixels > widest_thumbnail) {
        throw usage_error(
            fmt::format("--thumbnails: {} is no width. Write a whole number of pixels from {} to "
                        "{}, such as --thumbnails=320.",
                        visible_name(width), narrowest_thumbnail, widest_thumbnail));
    }
    options.inpoint_thumbnail_jpegs = true;
    options.thumbnail_width = pixels;
}

media_mapping mapping_of(const std::string& text)
{
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos || equals + 1 == text.size()) {
        throw usage_error(fmt::format("--media-map: {} is no mapping. Write the folder that the document "
                                      "names, \"=\" and the folder where its files are now, such as "
                                      "/Volumes/Media=/mnt/media.",
                                      visible_name(text)));
    }
    return {text.substr(0, equals), text.substr(equals + 1)};
}

/// "800M" or "2G". Less than any film needs is refused.
std::uint64_t memory_in(const std::string& text)
{
    constexpr std::uint64_t least = 128U << 20U;
    constexpr std::uint64_t most_units = 1U << 20U;
    std::uint64_t units = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), units);
    const std::string_view unit(end, text.data() + text.size());
    const int shift = unit == "M" ? 20 : unit == "G" ? 30 : 0;
    const std::uint64_t bytes = error == std::errc() && units <= most_units ? units << shift : 0;
    if (shift == 0 || bytes < least)
        throw usage_error(
            fmt::format("--memory: {} is no size from 128M on. Write a whole number and M or G, "
                        "such as --memory 800M or --memory 2G.",
                        visible_name(text)));
    return bytes;
}

void apply_handles(const std::string& text, report_options& options)
{
    constexpr std::int64_t most = 1'000'000;
    std::int64_t frames = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), frames);
    if (error != std::errc() || end != text.data() + text.size() || frames < 0 || frames > most) {
        throw usage_error(fmt::format("--handles: {} is no number of frames. Write a whole number from 0 to "
                                      "{}, such as --handles 12.",
                                      visible_name(text), most));
    }
    options.media_handles = frames;
}

void fill_in_media_places(const CLI::App& command, const raw_report_flags& raw, report_request& request)
{
    if (command.count("--handles") > 0)
        apply_handles(raw.handles, request.options);
    for (const std::string& mapping : raw.media_map)
        request.media_map.push_back(mapping_of(mapping));
    for (const std::filesystem::path& folder : request.media_search) {
        std::error_code unreadable;
        if (!std::filesystem::is_directory(folder, unreadable))
            throw usage_error(
                fmt::format("--media-search: there is no folder {}.", visible_name(folder.string())));
    }
}

void fill_in_item(const CLI::App& command, const raw_report_flags& raw, report_request& request)
{
    request.item = chosen_item(command, raw);
    if (command.count("--scope") > 0)
        request.scope = scope_named(raw.scope);
    if (command.count("--tracks") > 0)
        request.tracks = raw.tracks == "none" ? std::vector<std::string>() : split_list(raw.tracks);
}

void fill_in(const CLI::App& report, const raw_report_flags& raw, report_request& request)
{
    fill_in_item(report, raw, request);
    if (report.count("--figures") > 0)
        request.figures = figure_style_named(raw.figures);
    request.options.timeline_time_columns =
        chosen_time_formats(report, "--timeline-columns", raw.timeline_columns);
    request.options.source_time_columns = chosen_time_formats(report, "--source-columns", raw.source_columns);
    for (const std::string& adjustment : raw.adjustments)
        apply_adjustment(adjustment, request.options.adjustments);
    if (report.count("--columns") > 0)
        apply_columns(raw.columns, request.options);
    for (const color_flag& flag : color_flags)
        check_color(request.options.*flag.color, flag.name);
    if (report.count("--thumbnails") > 0)
        apply_thumbnails(raw.thumbnails, request.options);
    if (report.count("--memory") > 0)
        request.media_memory = memory_in(raw.memory);
    fill_in_media_places(report, raw, request);
}

void describe(CLI::App& app)
{
    app.name("tallyframe");
    app.description("Tallyframe turns an exported timeline (XML from Final Cut Pro 7 or Premiere Pro)\n"
                    "into an Excel workbook: every clip, title, transition, filter and marker,\n"
                    "exact to the frame.");
    app.footer("Start with:  tallyframe report CUT.xml\n"
               "Then open CUT.xls. `tallyframe help report` shows every option.\n"
               "`tallyframe` alone, or with nothing but a document, opens the window.");
    app.set_version_flag("--version", fmt::format("tallyframe {}", application::version),
                         "Print the version and leave");
    app.set_help_flag("-h,--help", "Print this help and leave");
    set_help_form(app);
}

constexpr std::string_view commands[] = {"list", "report", "media", "help"};

void refuse_unknown_command(const std::vector<std::string>& arguments)
{
    if (arguments.empty() || arguments.front().starts_with('-')
        || std::find(std::begin(commands), std::end(commands), arguments.front()) != std::end(commands))
        return;
    throw usage_error(
        fmt::format("There is no command {}. The commands are list, report, media and help: start with "
                    "`tallyframe report FILE.xml`.",
                    visible_name(arguments.front())));
}

/// The arguments from the last to the first, as CLI11 takes them. "help report" is "report --help", and
/// "--flag=" with nothing behind it gives the flag an empty text, which CLI11 would miss.
std::vector<std::string> in_the_parsers_form(std::vector<std::string> arguments)
{
    if (!arguments.empty() && arguments.front() == "help") {
        arguments.erase(arguments.begin());
        refuse_unknown_command(arguments);
        arguments.emplace_back("--help");
    }
    refuse_unknown_command(arguments);
    std::vector<std::string> form;
    for (const std::string& argument : arguments) {
        if (argument.starts_with("--") && argument.ends_with('=')) {
            form.push_back(argument.substr(0, argument.size() - 1));
            form.emplace_back();
        } else if (argument == "--thumbnails") {
            form.emplace_back("--thumbnails=320"); // what follows it is no width
        } else {
            form.push_back(argument);
        }
    }
    std::ranges::reverse(form);
    return form;
}

CLI::App* add_list_command(CLI::App& app, list_request& request)
{
    CLI::App* list = app.add_subcommand("list", "Show what a document offers: bins and sequences");
    list->group("Commands");
    list->add_option("FILE.xml", request.document, "The exported timeline")->required()->option_text(" ");
    list->add_flag("--json", request.json, "As JSON, for scripts");
    list->add_flag("--unidentified", request.unidentified, unidentified_help);
    list->footer("`report --item` takes the number in front, `report --sequence` the identifier at\n"
                 "the end.");
    return list;
}

CLI::App* add_report_command(CLI::App& app, raw_report_flags& raw, report_request& request)
{
    CLI::App* report = app.add_subcommand("report", "Write the workbook of a sequence or of the bins");
    report->group("Commands");
    report->add_option("FILE.xml", request.document, "The exported timeline")->required()->option_text(" ");
    report
        ->add_option("-o,--output", request.output,
                     "The workbook, or the folder for it (FILE.xls in the current folder)")
        ->option_text("REPORT.xls");
    add_item_flags(*report, raw, request, "Every entry, one workbook each");
    add_content_flags(*report, raw, request.options);
    add_sheet_flags(*report, raw, request.options);
    add_media_flags(*report, raw, request);
    report->add_flag("--quiet", request.quiet, "No diagnostics on standard output")->group("Output");
    report->add_flag("--progress", request.progress, "A progress line on standard error")->group("Output");
    report->footer("Without --item, --sequence, --bins or --all the document's only entry is\n"
                   "reported. Lists are separated by commas; quote those that hold blanks.\n\n"
                   "Examples:\n"
                   "  tallyframe report CUT.xml\n"
                   "  tallyframe report CUT.xml --item 3 --tracks V1,V2 -o picture.xls\n"
                   "  tallyframe report CUT.xml --timeline-columns Clock,Frames --enabled-only\n"
                   "  tallyframe report CUT.xml --thumbnails --media-search /Volumes/Rushes");
    return report;
}

CLI::App* add_media_command(CLI::App& app, raw_report_flags& raw, media_request& request)
{
    constexpr const char* output_group = "Output";
    CLI::App* media = app.add_subcommand("media", "Check the media files of a sequence or of the bins");
    media->group("Commands");
    media->add_option("FILE.xml", request.subject.document, "The exported timeline")
        ->required()
        ->option_text(" ");
    add_item_flags(*media, raw, request.subject, "Every entry, all in one list");
    media->add_flag("--enabled-only", request.subject.options.report_enabled_only, "Only what is enabled")
        ->group("What to report");
    add_media_place_flags(*media, raw, request.subject);
    add_handles_flag(*media, raw, media_group);
    auto* json = media->add_flag_callback(
        "--json", [&] { request.as = media_request::format::json; }, "As JSON, for scripts");
    auto* csv = media->add_flag_callback(
        "--csv", [&] { request.as = media_request::format::csv; }, "As comma-separated values");
    json->option_text(" ")->group(output_group)->excludes(csv);
    csv->option_text(" ")->group(output_group);
    media->add_flag("--progress", request.subject.progress, "A progress line on standard error")
        ->group(output_group);
    media->footer("Says of each file where it was found, what of it is used, whether it has those\n"
                  "frames, and in what it differs from what the document says. Exit code 1 when a\n"
                  "file is missing, cannot be read, or lacks frames that are used.\n\n"
                  "Examples:\n"
                  "  tallyframe media CUT.xml\n"
                  "  tallyframe media CUT.xml --all --media-search /Volumes/Rushes --csv\n"
                  "  tallyframe media CUT.xml --handles 12 --json");
    return media;
}

/// Reads the arguments into what the commands were given to fill. Returns the version or the help, when that
/// is what they ask for.
std::optional<std::string> parse(CLI::App& app, const std::vector<std::string>& arguments)
{
    try {
        app.parse(in_the_parsers_form(arguments));
    } catch (const CLI::CallForVersion& version) {
        return std::string(version.what()) + "\n";
    } catch (const CLI::CallForHelp&) {
        const auto chosen = app.get_subcommands();
        return help_text(chosen.empty() ? app : *chosen.front());
    } catch (const CLI::ParseError& error) {
        throw usage_error(
            fmt::format("{}\n`tallyframe help` and `tallyframe help report` show how it is used.",
                        visible_text(error.what())));
    }
    return std::nullopt;
}

} // namespace

request parse_arguments(const std::vector<std::string>& arguments)
{
    CLI::App app;
    describe(app);
    list_request list_flags;
    const CLI::App* list = add_list_command(app, list_flags);
    report_request report_flags;
    raw_report_flags raw;
    const CLI::App* report = add_report_command(app, raw, report_flags);
    media_request media_flags;
    raw_report_flags raw_media;
    const CLI::App* media = add_media_command(app, raw_media, media_flags);
    app.add_subcommand("help", "Show how a command is used: `tallyframe help report`")->group("Commands");

    request result;
    if (std::optional<std::string> text = parse(app, arguments)) {
        result.text = std::move(*text);
    } else if (list->parsed()) {
        result.list = std::move(list_flags);
    } else if (report->parsed()) {
        fill_in(*report, raw, report_flags);
        result.report = std::move(report_flags);
    } else if (media->parsed()) {
        fill_in_item(*media, raw_media, media_flags.subject);
        fill_in_media_places(*media, raw_media, media_flags.subject);
        result.media = std::move(media_flags);
    } else {
        result.text = help_text(app);
    }
    return result;
}

} // namespace tallyframe::cli
