// SPDX-License-Identifier: MIT
#include "run/failures.h"
#include "window/runs/run_progress.h"

#include <gtest/gtest.h>

namespace tallyframe::window {

TEST(run_progress, moves_to_and_fro_until_the_run_knows_its_length)
{
    run_progress display;
    display.show_message("Fixing bad characters in the XML file...\n");
    EXPECT_EQ(display.state(), (progress_state{.message = "Fixing bad characters in the XML file..."}));
}

TEST(run_progress, counts_steps_and_keeps_the_message_where_there_is_no_new_one)
{
    run_progress display;
    display.begin(10);
    display.advance("Analyzing Media Files\n");
    display.advance("");
    EXPECT_EQ(display.state(), (progress_state{true, 2, 10, "Analyzing Media Files"}));
}

TEST(run_progress, begins_at_zero_again)
{
    run_progress display;
    display.begin(10);
    display.advance("");
    display.begin(20);
    EXPECT_EQ(display.state(), (progress_state{true, 0, 20, ""}));
}

TEST(run_progress, spins_while_nobody_knows_how_long_it_takes)
{
    run_progress display;
    display.begin(10);
    display.spin("Saving spreadsheet...\n");
    EXPECT_FALSE(display.state().is_determinate);
    EXPECT_EQ(display.state().message, "Saving spreadsheet...");
}

TEST(run_progress, ends_a_cancelled_run_at_any_next_step)
{
    run_progress display;
    EXPECT_NO_THROW(display.leave_if_cancelled());
    display.cancel();
    EXPECT_THROW(display.leave_if_cancelled(), run_cancelled);
    EXPECT_THROW(display.begin(1), run_cancelled);
    EXPECT_THROW(display.advance(""), run_cancelled);
    EXPECT_THROW(display.show_message(""), run_cancelled);
    EXPECT_THROW(display.spin(""), run_cancelled);
    EXPECT_NO_THROW(display.end());
}

} // namespace tallyframe::window
