// SPDX-License-Identifier: MIT
#include "cli/track_choice.h"

#include "cli/arguments.h"
#include "text/visible_text.h"

#include <fmt/format.h>

#include <algorithm>

namespace tallyframe::cli {

namespace {

bool contains(const std::vector<std::string>& labels, const std::string& label)
{
    return std::find(labels.begin(), labels.end(), label) != labels.end();
}

void tick(const std::vector<track_description>& tracks, const std::vector<std::string>& labels,
          track_checkboxes& checkboxes)
{
    if (!checkboxes.current)
        return;
    for (std::size_t i = 0; i < checkboxes.current->size() && i < tracks.size(); ++i)
        (*checkboxes.current)[i] = contains(labels, tracks[i].label) ? 1 : 0;
}

} // namespace

void tick_only(const std::vector<std::string>& labels, report_session& session)
{
    std::vector<std::string> known;
    for (const auto* tracks : {&session.analysis.video_tracks, &session.analysis.audio_tracks}) {
        for (const track_description& track : *tracks)
            known.push_back(track.label);
    }
    for (const std::string& label : labels) {
        if (!contains(known, label)) {
            throw usage_error(
                fmt::format("--tracks: there is no track {}. The tracks are {}.", visible_name(label),
                            known.empty() ? "none" : fmt::format("{}", fmt::join(known, ", "))));
        }
    }
    tick(session.analysis.video_tracks, labels, session.video_tracks_table_checkboxes);
    tick(session.analysis.audio_tracks, labels, session.audio_tracks_table_checkboxes);
}

} // namespace tallyframe::cli
