// SPDX-License-Identifier: MIT
#include "window/desktop/look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>
#include <QToolTip>

namespace tallyframe::window {

namespace {

class look : public ::testing::Test {
protected:
    ~look() override { apply_appearance(appearance::system); }

    static QColor color(QPalette::ColorRole role) { return QApplication::palette().color(role); }
};

} // namespace

TEST_F(look, is_light_text_on_a_dark_ground_in_the_dark)
{
    apply_appearance(appearance::dark);
    EXPECT_LT(color(QPalette::Base).lightness(), 64);
    EXPECT_LT(color(QPalette::Window).lightness(), 64);
    EXPECT_GT(color(QPalette::Text).lightness(), 192);
    EXPECT_GT(color(QPalette::ButtonText).lightness(), 192);
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipText), color(QPalette::ToolTipText));
}

TEST_F(look, shows_in_the_dark_what_cannot_be_used_fainter)
{
    apply_appearance(appearance::dark);
    const QPalette palette = QApplication::palette();
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        EXPECT_LT(palette.color(QPalette::Disabled, role).lightness(), palette.color(role).lightness())
            << role;
}

TEST_F(look, comes_back_to_what_it_was)
{
    apply_appearance(appearance::light);
    const QColor ground = color(QPalette::Base);
    const QColor text = color(QPalette::Text);
    EXPECT_GT(ground.lightness(), text.lightness());
    apply_appearance(appearance::dark);
    apply_appearance(appearance::light);
    EXPECT_EQ(color(QPalette::Base), ground);
    EXPECT_EQ(color(QPalette::Text), text);
}

} // namespace tallyframe::window
