// SPDX-License-Identifier: MIT
#include "window/panels/left_out_line.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QSignalSpy>

namespace tallyframe::window {

TEST(left_out_line, is_there_only_where_sequences_are_left_out)
{
    left_out_line line;
    EXPECT_TRUE(line.isHidden());
    line.set_count(1);
    EXPECT_FALSE(line.isHidden());
    auto* label = line.findChild<QLabel*>("leftOutLabel");
    EXPECT_EQ(label->text(), "1 sequence without an identifier is not listed.");
    line.set_count(1200);
    EXPECT_EQ(label->text(), "1,200 sequences without an identifier are not listed.");
    line.set_count(0);
    EXPECT_TRUE(line.isHidden());
}

TEST(left_out_line, passes_the_wish_to_list_them_on)
{
    left_out_line line;
    const QSignalSpy wishes(&line, &left_out_line::listing_requested);
    line.findChild<QAbstractButton*>("listUnidentifiedButton")->click();
    EXPECT_EQ(wishes.count(), 1);
}

} // namespace tallyframe::window
