// SPDX-License-Identifier: MIT
#include "window/option_checkboxes.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tallyframe::window {

namespace {

constexpr const char* context = "option_checkbox";

constexpr option_checkbox sheets[] = {
    {"markersSheetsCheckbox", &report_options::markers_sheets,
     QT_TRANSLATE_NOOP("option_checkbox", "Markers"),
     QT_TRANSLATE_NOOP(
         "option_checkbox",
         "The sheets \"Sequence Markers\" and \"Clip Markers\", with names, comments and colors")},
    {"generatorsSheetCheckbox", &report_options::generators_sheet,
     QT_TRANSLATE_NOOP("option_checkbox", "Graphics && Titles"),
     QT_TRANSLATE_NOOP(
         "option_checkbox",
         "The sheet \"Graphics & Titles\": every title with its text and fonts, slugs and mattes")},
    {"transitionsSheetCheckbox", &report_options::transitions_sheet,
     QT_TRANSLATE_NOOP("option_checkbox", "Transitions"),
     QT_TRANSLATE_NOOP("option_checkbox",
                       "The sheet \"Transitions\": every transition, other makers' in red")},
    {"filtersSheetCheckbox", &report_options::filters_sheet, QT_TRANSLATE_NOOP("option_checkbox", "Filters"),
     QT_TRANSLATE_NOOP("option_checkbox", "The sheet \"Filters\": every filter, other makers' in red")},
    {"motionSheetCheckbox", &report_options::motion_sheet,
     QT_TRANSLATE_NOOP("option_checkbox", "Motion Effects"),
     QT_TRANSLATE_NOOP(
         "option_checkbox",
         "The sheet \"Motion Effects\": scale, rotation, crop and whatever else is not neutral")},
    {"summarySheetCheckbox", &report_options::summary_sheet,
     QT_TRANSLATE_NOOP("option_checkbox", "Files Summary"),
     QT_TRANSLATE_NOOP("option_checkbox",
                       "The sheet \"Files Summary\": how much of the sequence each media file covers")},
    {"reelSheetsCheckbox", &report_options::reel_sheets,
     QT_TRANSLATE_NOOP("option_checkbox", "Reels (summary and a sheet each)"),
     QT_TRANSLATE_NOOP("option_checkbox", "The sheet \"Reels Summary\" and one sheet for each source reel")},
};

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
    return sheets;
}

std::span<const option_checkbox> row_checkboxes()
{
    return rows;
}

std::span<const option_checkbox> picture_checkboxes()
{
    return pictures;
}

option_checkbox_list::option_checkbox_list(std::span<const option_checkbox> entries, QWidget* parent)
    : QWidget(parent), entries_(entries)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    for (const option_checkbox& entry : entries) {
        auto* box = new QCheckBox(QCoreApplication::translate(context, entry.title));
        box->setObjectName(entry.object_name);
        box->setToolTip(QCoreApplication::translate(context, entry.tool_tip));
        connect(box, &QCheckBox::toggled, this, &option_checkbox_list::changed);
        column->addWidget(box);
        boxes_.push_back(box);
    }
}

void option_checkbox_list::set_options(const report_options& options)
{
    const QSignalBlocker quiet(this);
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        boxes_[i]->setChecked(options.*entries_[i].option);
}

void option_checkbox_list::apply_to(report_options& options) const
{
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        options.*entries_[i].option = boxes_[i]->isChecked();
}

QCheckBox* option_checkbox_list::box_for(bool report_options::*option) const
{
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        if (entries_[i].option == option)
            return boxes_[i];
    }
    return nullptr;
}

} // namespace tallyframe::window
