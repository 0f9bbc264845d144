// SPDX-License-Identifier: MIT
#include "window/models/option_checkboxes.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

using testing::ElementsAre;

namespace tallyframe::window {

namespace {

std::vector<std::string> names_of(std::span<const option_checkbox> boxes)
{
    std::vector<std::string> names;
    for (const option_checkbox& box : boxes)
        names.emplace_back(box.object_name);
    return names;
}

} // namespace

TEST(option_checkboxes, have_names_that_stay_as_settings_are_kept_under_them)
{
    EXPECT_THAT(names_of(sheet_checkboxes()),
                ElementsAre("markersSheetsCheckbox", "generatorsSheetCheckbox", "transitionsSheetCheckbox",
                            "filtersSheetCheckbox", "motionSheetCheckbox", "summarySheetCheckbox",
                            "mediaSheetCheckbox", "reelSheetsCheckbox"));
    EXPECT_THAT(names_of(row_checkboxes()),
                ElementsAre("enabledOnlyCheckbox", "videoClipAudioCheckbox", "audioTagsCheckbox"));
    EXPECT_THAT(names_of(picture_checkboxes()),
                ElementsAre("inpointThumbnailsCheckbox", "keepThumbnailsCheckbox"));
}

TEST(option_checkboxes, stand_for_an_option_each_and_explain_it)
{
    std::vector<bool report_options::*> options;
    for (const auto boxes : {sheet_checkboxes(), row_checkboxes(), picture_checkboxes()}) {
        for (const option_checkbox& box : boxes) {
            EXPECT_EQ(std::ranges::count(options, box.option), 0) << box.object_name;
            EXPECT_GT(std::string(box.tool_tip).size(), std::string(box.title).size()) << box.object_name;
            options.push_back(box.option);
        }
    }
    EXPECT_EQ(options.size(), 13U);
}

} // namespace tallyframe::window
