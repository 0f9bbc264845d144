// SPDX-License-Identifier: MIT
#include "media/media_catalogues.h"

#include <algorithm>
#include <utility>

namespace tallyframe {

namespace {

media_catalogue read_catalogue(const std::vector<xml_node>& file_elements,
                               std::optional<frame_rate> seq_fcp_rate, progress& display)
{
    files_info info = get_files_info(file_elements, seq_fcp_rate, display);
    std::vector<std::string>& reels = info.reel_names;
    std::ranges::sort(reels);
    reels.erase(std::unique(reels.begin(), reels.end()),
                reels.end()); // clang 14 cannot compile the range form
    return {std::move(info.files), std::move(reels)};
}

} // namespace

const media_catalogue& media_catalogues::of(const std::vector<xml_node>& file_elements,
                                            std::optional<frame_rate> seq_fcp_rate, progress& display)
{
    for (const known_catalogue& known : known_) {
        if (known.seq_fcp_rate == seq_fcp_rate) {
            for (std::size_t i = 0; i < file_elements.size(); ++i)
                display.advance(media_files_message);
            return *known.media;
        }
    }
    auto media =
        std::make_unique<const media_catalogue>(read_catalogue(file_elements, seq_fcp_rate, display));
    known_.push_back({seq_fcp_rate, std::move(media)});
    return *known_.back().media;
}

} // namespace tallyframe
