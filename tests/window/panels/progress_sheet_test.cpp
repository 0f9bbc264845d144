// SPDX-License-Identifier: MIT
#include "window/panels/progress_sheet.h"
#include "window/patience.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QProgressBar>
#include <QTest>

namespace tallyframe::window {

TEST(progress_sheet, keeps_its_width_whatever_it_tells)
{
    run_progress display;
    progress_sheet few;
    few.follow(display, "Opening");
    display.show_message("Searching /" + std::string(400, 'x'));
    progress_sheet many;
    many.follow(display, "Opening " + QString(400, 'x'));
    EXPECT_EQ(many.sizeHint(), few.sizeHint());
}

TEST(progress_sheet, shows_the_message_the_bar_and_the_badge)
{
    progress_sheet sheet;
    run_progress display;
    QStringList badges;
    QObject::connect(&sheet, &progress_sheet::badge_changed, [&](const QString& text) { badges << text; });
    display.begin(4);
    display.advance("Analyzing Clips in Track V1\n");
    sheet.follow(display, "Analyzing");
    EXPECT_EQ(sheet.findChild<QLabel*>("progressMessage")->text(), "Analyzing Clips in Track V1");
    const auto* bar = sheet.findChild<QProgressBar*>("progressIndicator");
    EXPECT_EQ(bar->value() * 4, bar->maximum());
    EXPECT_FALSE(sheet.isVisible()) << "a short run does not flash";
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.isVisible(); }, patience));
    display.spin("Saving spreadsheet...\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->maximum() == 0; }, patience));
    sheet.finish();
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(badges, (QStringList{"25%", ""})) << "the badge stays while the bar moves to and fro";
}

TEST(progress_sheet, speaks_of_reading_until_the_run_knows_its_length)
{
    progress_sheet sheet;
    run_progress display;
    sheet.follow(display, "Saving");
    const auto* message = sheet.findChild<QLabel*>("progressMessage");
    EXPECT_EQ(message->text(), "Reading…");
    display.begin(100);
    display.advance({}); // a row is written; the bar tells
    EXPECT_TRUE(QTest::qWaitFor([&] { return message->text().isEmpty(); }, patience));
    sheet.finish();
}

TEST(progress_sheet, asks_for_the_runs_end_once_and_waits_for_it)
{
    progress_sheet sheet;
    const run_progress display;
    int requests = 0;
    QObject::connect(&sheet, &progress_sheet::cancel_requested, [&] { ++requests; });
    sheet.follow(display, "Saving");
    sheet.show();
    QTest::keyClick(&sheet, Qt::Key_Escape);
    sheet.findChild<QAbstractButton*>("cancelButton")->click();
    EXPECT_EQ(requests, 1);
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(sheet.findChild<QLabel*>("progressMessage")->text(), "Stopping…");
    sheet.finish();
}

TEST(progress_sheet, does_not_stand_in_the_way_of_who_quits)
{
    progress_sheet sheet;
    const run_progress display;
    int requests = 0;
    QObject::connect(&sheet, &progress_sheet::cancel_requested, [&] { ++requests; });
    sheet.follow(display, "Saving");
    sheet.show();
    EXPECT_TRUE(sheet.close());
    EXPECT_EQ(requests, 1);
    sheet.finish();
}

} // namespace tallyframe::window
