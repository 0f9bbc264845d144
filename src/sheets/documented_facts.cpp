// SPDX-License-Identifier: MIT
#include "sheets/documented_facts.h"

#include "text/leading_numbers.h"

#include <string_view>

namespace tallyframe {

namespace {

constexpr std::string_view between_sizes = " × ";

std::optional<pixel_size> size_of(const std::optional<std::string>& text)
{
    const std::size_t at = text ? text->find(between_sizes) : std::string::npos;
    if (at == std::string::npos)
        return std::nullopt;
    const auto number = [](std::string_view digits) {
        const std::int64_t pixels = leading_integer(digits);
        constexpr std::int64_t most = 1'000'000;
        return pixels > 0 && pixels < most ? static_cast<int>(pixels) : 0;
    };
    const std::string_view sizes = *text;
    const pixel_size size{number(sizes.substr(0, at)), number(sizes.substr(at + between_sizes.size()))};
    return size.width != 0 && size.height != 0 ? std::optional(size) : std::nullopt;
}

} // namespace

std::optional<double> exact_rate(const std::optional<frame_rate>& rate)
{
    if (!rate)
        return std::nullopt;
    const auto nominal = nominal_rate(rate->frames_per_second);
    if (!nominal)
        return std::nullopt;
    return rate->is_floating ? static_cast<double>(*nominal) * 1000 / 1001 : rate->frames_per_second;
}

media_facts facts_in_document(const file_record& file)
{
    media_facts facts;
    const std::optional<double> rate = exact_rate(file.fcp_rate);
    facts.frame_size = size_of(file.frame_size);
    if (rate && file.src_duration)
        facts.duration = static_cast<double>(*file.src_duration) / *rate;
    if (facts.frame_size && file.src_duration)
        facts.frames_per_second = rate;
    if (file.audio_channels)
        facts.audio_channels = static_cast<int>(*file.audio_channels);
    return facts;
}

std::vector<documented_media> documented_media_of(const std::vector<file_record>& files)
{
    std::vector<documented_media> media;
    for (const file_record& file : files) {
        if (file.path && !file.path->empty() && file.video_format)
            media.push_back({*file.path, facts_in_document(file)});
    }
    return media;
}

} // namespace tallyframe
