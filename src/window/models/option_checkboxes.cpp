// SPDX-License-Identifier: MIT
#include "window/models/option_checkboxes.h"

#include "sheets/sheet_kinds.h"

#include <QCoreApplication>
#include <vector>

namespace tallyframe::window {

namespace {

constexpr option_checkbox rows[] = {
    {"enabledOnlyCheckbox", &report_options::report_enabled_only,
     QT_TRANSLATE_NOOP("option_checkbox", "Enabled clips only"),
     QT_TRANSLATE_NOOP("option_checkbox",
                       "Leaves out every clip, title, effect and marker that is disabled")},
    {"videoClipAudioCheckbox", &report_options::skip_video_clip_audio,
     QT_TRANSLATE_NOOP("option_checkbox", "Skip audio of video clips"),
     QT_TRANSLATE_NOOP(
         "option_checkbox",
         "Leaves out audio clips whose media file is also used by a video clip, so that camera sound "
         "is not listed twice")},
    {"audioTagsCheckbox", &report_options::audio_tags,
     QT_TRANSLATE_NOOP("option_checkbox", "Song titles and other tags"),
     QT_TRANSLATE_NOOP("option_checkbox",
                       "Columns with title, album and authors out of each audio file. Reads those files")},
};

constexpr option_checkbox pictures[] = {
    {"inpointThumbnailsCheckbox", &report_options::inpoint_thumbnail_jpegs,
     QT_TRANSLATE_NOOP("option_checkbox", "Pictures of in-points"),
     QT_TRANSLATE_NOOP(
         "option_checkbox",
         "A picture of the first frame in each clip's row. Reads the media files, so it takes a while")},
    {"keepThumbnailsCheckbox", &report_options::keep_thumbnails,
     QT_TRANSLATE_NOOP("option_checkbox", "Keep the picture files"),
     QT_TRANSLATE_NOOP(
         "option_checkbox",
         "Keeps the pictures as JPEG files in a folder beside the workbook, and opens that folder")},
};

} // namespace

std::span<const option_checkbox> sheet_checkboxes()
{
    static const std::vector<option_checkbox> boxes = [] {
        std::vector<option_checkbox> made;
        for (const sheet_option& choice : sheet_options())
            made.push_back({choice.checkbox, choice.option, choice.title, choice.tool_tip});
        return made;
    }();
    return boxes;
}

std::span<const option_checkbox> row_checkboxes()
{
    return rows;
}

std::span<const option_checkbox> picture_checkboxes()
{
    return pictures;
}

} // namespace tallyframe::window
