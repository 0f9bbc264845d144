// SPDX-License-Identifier: MIT
#include "report/shared_rows.h"

namespace tallyframe {

namespace {

bool have_same_place(const track_position& left, const track_position& right)
{
    return left.seq_start_frame == right.seq_start_frame && left.seq_end_frame == right.seq_end_frame;
}

} // namespace

bool is_audio(const track_position& place)
{
    return place.track.find('A') != std::string::npos;
}

bool shares_row_on_clips_sheet(const clip_record& previous, const clip_record& clip)
{
    return is_audio(clip.place) && is_audio(previous.place) && have_same_place(previous.place, clip.place)
        && previous.path == clip.path;
}

bool is_same_use_of_reel(const clip_record& previous, const clip_record& clip)
{
    return have_same_place(previous.place, clip.place) && previous.name == clip.name;
}

bool shares_row_on_reel_sheet(const clip_record& previous, const clip_record& clip)
{
    return is_audio(previous.place) == is_audio(clip.place) && is_same_use_of_reel(previous, clip);
}

std::vector<const clip_record*> rows_of_clips_sheet(const std::vector<const clip_record*>& clip_data_array)
{
    std::vector<const clip_record*> rows;
    const clip_record* previous = nullptr;
    for (const clip_record* clip : clip_data_array) {
        if (previous == nullptr || !shares_row_on_clips_sheet(*previous, *clip))
            rows.push_back(clip);
        previous = clip;
    }
    return rows;
}

} // namespace tallyframe
