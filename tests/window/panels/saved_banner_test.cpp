// SPDX-License-Identifier: MIT
#include "window/panels/saved_banner.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace tallyframe::window {

TEST(saved_banner, tells_what_the_workbook_lost)
{
    account lost;
    lost.add(loss_kind::missing_media, 1, "/Volumes/A/<b>one</b>.mov");
    lost.add(loss_kind::missing_media, 1, "/Volumes/A/two.mov");
    lost.add(loss_kind::missing_pictures, 3);
    saved_banner banner;
    banner.show_saved("/reports/cut.xls", lost);
    EXPECT_EQ(banner.findChild<QLabel*>("savedText")->text(), "Saved cut.xls");
    const auto* losses = banner.findChild<QLabel*>("savedLosses");
    EXPECT_EQ(losses->text(),
              "2 media files were not found (/Volumes/A/<b>one</b>.mov, /Volumes/A/two.mov).\n"
              "3 rows show a placeholder, because their media was not found.");
    EXPECT_EQ(losses->textFormat(), Qt::PlainText);
    EXPECT_TRUE(losses->isVisible());
    banner.show_saved("/reports/cut.xls", {});
    EXPECT_FALSE(losses->isVisible());
}

} // namespace tallyframe::window
