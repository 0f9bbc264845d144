// SPDX-License-Identifier: MIT
#include "window/models/media_places.h"

namespace tallyframe::window {

media_choice media_choice_of(const report_options& options, const std::vector<media_place>& places)
{
    media_choice choice{
        options.inpoint_thumbnail_jpegs, options.keep_thumbnails, {}, {}, options.media_sheet};
    for (const media_place& place : places) {
        if (place.named_in_timeline.empty())
            choice.search.emplace_back(place.folder);
        else
            choice.map.push_back({place.named_in_timeline, place.folder});
    }
    return choice;
}

} // namespace tallyframe::window
