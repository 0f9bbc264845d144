// SPDX-License-Identifier: MIT
#include "cli/media_listing.h"

#include "sheets/documented_facts.h"
#include "sheets/media_sheet.h"
#include "text/visible_text.h"
#include "writers/csv_text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <vector>

namespace tallyframe::cli {

namespace {

using json = nlohmann::ordered_json;

constexpr const char* indent = "            ";
constexpr std::size_t most_ranges = 5; ///< that a line shows

/// "1,234,567".
std::string grouped(std::uintmax_t number)
{
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3; at -= 3)
        digits.insert(at - 3, 1, ',');
    return digits;
}

/// "1.2 GB (1,234,567,890 bytes)".
std::string size_text(std::uintmax_t bytes)
{
    constexpr const char* units[] = {"kB", "MB", "GB", "TB", "PB"};
    std::string exact = fmt::format("{} byte{}", grouped(bytes), bytes == 1 ? "" : "s");
    if (bytes < 1000)
        return exact;
    double size = static_cast<double>(bytes) / 1000;
    std::size_t unit = 0;
    for (; size >= 999.95 && unit + 1 < std::size(units); ++unit)
        size /= 1000;
    return fmt::format("{:.1f} {} ({})", size, units[unit], exact);
}

std::string lines_of(const checked_media& media)
{
    const std::string path = media.found ? media.found->string() : std::string(media.use.path());
    std::string lines = fmt::format("{:<11} {}\n", name_of(media.state), visible_text(path));
    const auto add = [&](const std::string& text) { lines += indent + text + "\n"; };

    std::string uses = fmt::format("{} clip{}", media.use.clip_count, media.use.clip_count == 1 ? "" : "s");
    std::vector<std::string> ranges = range_texts(media.use);
    if (ranges.size() > most_ranges) {
        ranges.resize(most_ranges);
        ranges.emplace_back("…");
    }
    if (!ranges.empty())
        uses += fmt::format(": {}", fmt::join(ranges, ", "));
    add(uses);
    if (const std::string lack = lack_text(media); !lack.empty())
        add(lack);
    for (const media_difference& difference : media.differences)
        add(fmt::format("{}: {} in the file, {} in the document", difference.fact,
                        visible_text(difference.in_file), visible_text(difference.in_document)));
    return lines;
}

std::string totals_line(std::span<const checked_media> files)
{
    const media_totals totals = totals_of(files);
    std::string line = fmt::format("{} media file{}", files.size(), files.size() == 1 ? "" : "s");
    const std::pair<std::size_t, media_state> counts[] = {{totals.missing, media_state::missing},
                                                          {totals.unreadable, media_state::unreadable},
                                                          {totals.too_short, media_state::too_short},
                                                          {totals.differing, media_state::differs}};
    const char* separator = ": ";
    for (const auto& [count, state] : counts) {
        if (count != 0) {
            line += fmt::format("{}{} {}", separator, count,
                                state == media_state::differs && count > 1 ? "differ" : name_of(state));
            separator = ", ";
        }
    }
    return fmt::format("{}. {} to copy.\n", line, size_text(totals.bytes));
}

template <class Value>
json or_null(const std::optional<Value>& value)
{
    return value ? json(*value) : json(nullptr);
}

json text_or_null(const std::string& text)
{
    return text.empty() ? json(nullptr) : json(text);
}

json facts_as_json(const media_facts& facts, const fact_texts& texts)
{
    return {{"duration", text_or_null(texts.duration)}, {"seconds", or_null(facts.duration)},
            {"rate", or_null(facts.frames_per_second)}, {"frame_size", text_or_null(texts.frame_size)},
            {"start", text_or_null(texts.start)},       {"audio_channels", or_null(facts.audio_channels)}};
}

json file_as_json(const checked_media& media)
{
    json ranges = json::array();
    const std::vector<std::string> texts = range_texts(media.use);
    for (std::size_t i = 0; i < media.use.ranges.size(); ++i)
        ranges.push_back({{"first", media.use.ranges[i].first},
                          {"last", media.use.ranges[i].last},
                          {"timecode", texts[i]}});
    json differences = json::array();
    for (const media_difference& difference : media.differences)
        differences.push_back(difference.fact);
    return {{"status", name_of(media.state)},
            {"path", media.use.path()},
            {"found", media.found ? json(media.found->string()) : json(nullptr)},
            {"bytes", or_null(media.bytes)},
            {"clips", media.use.clip_count},
            {"ranges", std::move(ranges)},
            {"missing_at_start", media.missing_at_start},
            {"missing_at_end", media.missing_at_end},
            {"differences", std::move(differences)},
            {"file", facts_as_json(media.facts.value_or(media_facts()), texts_of_file(media))},
            {"document", facts_as_json(facts_in_document(media.use.file), texts_of_document(media))}};
}

} // namespace

std::string media_as_text(std::span<const checked_media> files)
{
    std::string text;
    for (const checked_media& media : files)
        text += lines_of(media);
    return text + totals_line(files);
}

std::string media_as_json(std::span<const checked_media> files)
{
    const media_totals totals = totals_of(files);
    json listed = json::array();
    for (const checked_media& media : files)
        listed.push_back(file_as_json(media));
    const json whole = {{"files", std::move(listed)},
                        {"totals",
                         {{"files", files.size()},
                          {"missing", totals.missing},
                          {"unreadable", totals.unreadable},
                          {"too_short", totals.too_short},
                          {"differing", totals.differing},
                          {"bytes", totals.bytes}}}};
    return whole.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}

std::string media_as_csv(std::span<const checked_media> files)
{
    return csv_text(sheet_of_checked_media({files.begin(), files.end()}, {}));
}

} // namespace tallyframe::cli
