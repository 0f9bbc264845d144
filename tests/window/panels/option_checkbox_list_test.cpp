// SPDX-License-Identifier: MIT
#include "window/panels/option_checkbox_list.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QSignalSpy>

namespace tallyframe::window {

TEST(option_checkbox_list, shows_options_quietly_and_tells_what_the_user_changes)
{
    option_checkbox_list list(picture_checkboxes());
    const QSignalSpy changes(&list, &option_checkbox_list::changed);
    report_options options;
    options.inpoint_thumbnail_jpegs = true;
    list.set_options(options);
    EXPECT_TRUE(list.box_for(&report_options::inpoint_thumbnail_jpegs)->isChecked());
    EXPECT_FALSE(list.box_for(&report_options::keep_thumbnails)->isChecked());
    EXPECT_EQ(changes.count(), 0);

    list.box_for(&report_options::keep_thumbnails)->click();
    EXPECT_EQ(changes.count(), 1);
    report_options chosen;
    list.apply_to(chosen);
    EXPECT_TRUE(chosen.inpoint_thumbnail_jpegs);
    EXPECT_TRUE(chosen.keep_thumbnails);
    EXPECT_EQ(list.box_for(&report_options::reel_sheets), nullptr) << "it is in another list";
}

} // namespace tallyframe::window
