// SPDX-License-Identifier: MIT
#include "sheets/media_check.h"

#include "sheets/documented_facts.h"
#include "timecode/to_timecode.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <system_error>
#include <unordered_set>
#include <utility>

namespace tallyframe {

namespace {

constexpr double most_frames = 0x1p53;

std::optional<double> frames_in(std::optional<double> seconds, const file_record& file)
{
    const std::optional<double> rate = exact_rate(file.fcp_rate);
    if (!seconds || !rate || !(std::abs(*seconds * *rate) < most_frames))
        return std::nullopt;
    return rounded(*seconds * *rate);
}

std::string timecode(std::optional<double> frames, const file_record& file)
{
    if (!file.fcp_rate)
        return "";
    return to_timecode(frames, file.fcp_rate->frames_per_second, file.displayformat);
}

/// The file's first frame as the document counts them.
std::optional<double> start_frame(const media_facts& facts, const file_record& file)
{
    if (!file.fcp_rate)
        return std::nullopt;
    const bool is_drop = facts.start_timecode.find(';') != std::string::npos;
    if (!facts.start_timecode.empty())
        return to_frames(facts.start_timecode, file.fcp_rate->frames_per_second,
                         is_drop ? display_format::drop_frame : display_format::non_drop_frame);
    return frames_in(facts.start_seconds, file);
}

std::string rate_text(std::optional<double> rate)
{
    return rate ? fmt::format("{:.5g}", *rate) : "";
}

std::string size_text(std::optional<pixel_size> size)
{
    return size ? fmt::format("{} × {}", size->width, size->height) : "";
}

std::string channels_text(std::optional<int> channels)
{
    return channels ? std::to_string(*channels) : "";
}

fact_texts texts_of(const media_facts& facts, const file_record& file)
{
    fact_texts texts;
    texts.duration = facts.duration ? timecode(frames_in(facts.duration, file), file) : "";
    texts.rate = rate_text(facts.frames_per_second);
    texts.frame_size = size_text(facts.frame_size);
    texts.audio_channels = channels_text(facts.audio_channels);
    return texts;
}

std::vector<media_difference> differences_of(const checked_media& media)
{
    const file_record& file = media.use.file;
    const media_facts said = facts_in_document(file);
    const fact_differences facts = differences_of(*media.facts, said);
    const fact_texts in_file = texts_of_file(media);
    const fact_texts in_document = texts_of_document(media);
    const std::optional<double> start = start_frame(*media.facts, file);
    const bool starts_elsewhere = start && std::abs(*start - file.timecode_frame) > 1;
    const bool sounds_other = said.audio_channels && media.facts->audio_channels
        && said.audio_channels != media.facts->audio_channels;

    std::vector<media_difference> found;
    const auto note = [&](bool differs, std::string_view fact, std::string fact_texts::*text) {
        if (differs)
            found.push_back({fact, in_file.*text, in_document.*text});
    };
    note(facts.duration, "duration", &fact_texts::duration);
    note(facts.rate, "rate", &fact_texts::rate);
    note(facts.frame_size, "frame size", &fact_texts::frame_size);
    note(starts_elsewhere, "start", &fact_texts::start);
    note(sounds_other, "audio channels", &fact_texts::audio_channels);
    return found;
}

void find_missing_frames(checked_media& media, std::int64_t handles)
{
    const std::optional<double> frames = frames_in(media.facts->duration, media.use.file);
    if (!frames || media.use.ranges.empty())
        return;
    const used_frames all = {media.use.ranges.front().first, media.use.ranges.back().last};
    media.missing_at_start = std::max<std::int64_t>(handles - all.first, 0);
    media.missing_at_end =
        std::max<std::int64_t>(all.last + handles - (static_cast<std::int64_t>(*frames) - 1), 0);
}

media_state state_of(const checked_media& media)
{
    if (!media.found)
        return media_state::missing;
    if (!media.facts)
        return media_state::unreadable;
    if (media.missing_at_start + media.missing_at_end > 0)
        return media_state::too_short;
    return media.differences.empty() ? media_state::fine : media_state::differs;
}

void inspect(checked_media& media, std::int64_t handles, const media_inspection& with)
{
    media.found = with.locator.locate(*media.use.file.path);
    if (media.found) {
        std::error_code unseen;
        const std::uintmax_t bytes = std::filesystem::file_size(*media.found, unseen);
        if (!unseen)
            media.bytes = bytes;
        media.facts = with.probe.facts_of(*media.found);
    }
    if (media.facts) {
        media.differences = differences_of(media);
        find_missing_frames(media, handles);
    }
    media.state = state_of(media);
}

std::string frames_are_missing(std::int64_t frames, std::string_view where)
{
    if (frames == 0)
        return "";
    return fmt::format("{} {} missing at its {}", frames, frames == 1 ? "frame is" : "frames are", where);
}

} // namespace

std::string_view name_of(media_state state)
{
    switch (state) {
    case media_state::missing:
        return "missing";
    case media_state::unreadable:
        return "unreadable";
    case media_state::too_short:
        return "too short";
    case media_state::differs:
        return "differs";
    case media_state::fine:
        return "ok";
    case media_state::unchecked:
        break;
    }
    return "";
}

std::vector<checked_media> check_media(std::vector<media_use> uses, std::int64_t handles,
                                       const media_inspection* inspection)
{
    if (inspection != nullptr) {
        std::vector<documented_media> expected;
        expected.reserve(uses.size());
        for (const media_use& use : uses)
            expected.push_back({*use.file.path, facts_in_document(use.file)});
        inspection->locator.expect(expected);
    }
    std::vector<checked_media> checked;
    checked.reserve(uses.size());
    for (media_use& use : uses) {
        checked.push_back({.use = std::move(use), .found = {}, .bytes = {}, .facts = {}, .differences = {}});
        if (inspection != nullptr) {
            inspection->display.show_message("Checking " + *checked.back().use.file.path);
            inspect(checked.back(), handles, *inspection);
        }
    }
    if (inspection != nullptr)
        inspection->display.show_message({});
    return checked;
}

media_totals totals_of(std::span<const checked_media> files)
{
    media_totals totals;
    std::unordered_set<std::string> counted;
    for (const checked_media& media : files) {
        totals.missing += media.state == media_state::missing ? 1U : 0U;
        totals.unreadable += media.state == media_state::unreadable ? 1U : 0U;
        totals.too_short += media.state == media_state::too_short ? 1U : 0U;
        totals.differing += media.state == media_state::differs ? 1U : 0U;
        if (media.bytes && counted.insert(media.found->string()).second)
            totals.bytes += *media.bytes;
    }
    return totals;
}

fact_texts texts_of_file(const checked_media& media)
{
    if (!media.facts)
        return {};
    fact_texts texts = texts_of(*media.facts, media.use.file);
    texts.start = media.facts->start_timecode;
    if (texts.start.empty())
        texts.start = timecode(start_frame(*media.facts, media.use.file), media.use.file);
    return texts;
}

fact_texts texts_of_document(const checked_media& media)
{
    const file_record& file = media.use.file;
    fact_texts texts = texts_of(facts_in_document(file), file);
    if (file.src_duration)
        texts.start = timecode(file.timecode_frame, file);
    return texts;
}

std::vector<std::string> range_texts(const media_use& use)
{
    std::vector<std::string> texts;
    for (const used_frames& range : use.ranges) {
        const auto at = [&](std::int64_t frame) {
            return timecode(use.file.timecode_frame + static_cast<double>(frame), use.file);
        };
        texts.push_back(at(range.first) + "-" + at(range.last));
    }
    return texts;
}

std::string lack_text(const checked_media& media)
{
    const std::string at_start = frames_are_missing(media.missing_at_start, "start");
    const std::string at_end = frames_are_missing(media.missing_at_end, "end");
    return at_start + (at_start.empty() || at_end.empty() ? "" : ", ") + at_end;
}

} // namespace tallyframe
