// SPDX-License-Identifier: MIT
#include "window/desktop/asked_desktop.h"
#include "window/desktop/desktop_workspace.h"
#include "window/patience.h"

#include <gtest/gtest.h>

#include <QTest>
#include <thread>

namespace tallyframe::window {

TEST(desktop_workspace, opens_folders_for_a_run_on_any_thread)
{
    const asked_desktop desktop;
    std::thread([] { desktop_workspace().open_folder("/reports/Zoë"); }).join();
    EXPECT_TRUE(desktop.opened.isEmpty()) << "only where the application itself runs";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !desktop.opened.isEmpty(); }, patience));
    EXPECT_EQ(desktop.opened, QStringList{QString::fromUtf8("/reports/Zoë")});
}

TEST(desktop_workspace, opens_a_file_with_its_application)
{
    const asked_desktop desktop;
    EXPECT_TRUE(open_file("/reports/100% #1.xls"));
    EXPECT_EQ(desktop.opened, QStringList{"/reports/100% #1.xls"});
}

} // namespace tallyframe::window
