// SPDX-License-Identifier: MIT
#include "report/column_switches.h"
#include "window/models/saved_layouts.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::Field;

namespace tallyframe::window {

namespace {

std::vector<column_layout> named(const std::vector<std::string>& names)
{
    std::vector<column_layout> layouts;
    layouts.reserve(names.size());
    for (const std::string& name : names)
        layouts.push_back({name, {}});
    return layouts;
}

} // namespace

TEST(saved_layouts, start_from_the_default_columns)
{
    const column_layout layout{"Mine", default_checkboxes()};
    EXPECT_EQ(layout.checkboxes.size(), 25U);
    EXPECT_TRUE(is_on(layout, "Track"));
    EXPECT_FALSE(is_on(layout, "Row Numbers"));
    EXPECT_FALSE(is_on(layout, "Comments"));
}

TEST(saved_layouts, are_off_for_titles_that_they_do_not_list)
{
    column_layout layout{"Mine", {}};
    EXPECT_FALSE(is_on(layout, "Track"));
    set_on(layout, "Track", true);
    EXPECT_TRUE(is_on(layout, "Track"));
    set_on(layout, "Track", false);
    EXPECT_FALSE(is_on(layout, "Track"));
    EXPECT_EQ(layout.checkboxes.size(), 1U);
}

TEST(saved_layouts, never_take_a_name_twice)
{
    const auto layouts = named({"Conform", "Zoë"});
    EXPECT_EQ(check_name("Music", layouts, 2), name_fault::none);
    EXPECT_EQ(check_name(" conform ", layouts, 2), name_fault::taken);
    EXPECT_EQ(check_name("ZOË", layouts, 0), name_fault::taken);
    EXPECT_EQ(check_name("default", layouts, 2), name_fault::taken);
    EXPECT_EQ(check_name("Conform", layouts, 0), name_fault::none) << "its own name stays allowed";
    EXPECT_EQ(check_name("  ", layouts, 0), name_fault::empty);
}

TEST(saved_layouts, get_a_number_where_a_name_is_taken)
{
    EXPECT_EQ(free_name("New layout", {}), "New layout");
    EXPECT_EQ(free_name("New layout", named({"New layout", "new layout 2"})), "New layout 3");
}

TEST(saved_layouts, drop_what_no_menu_can_offer)
{
    EXPECT_THAT(usable_layouts(named({"", "Conform", "Default", " conform", "Music "})),
                ElementsAre(Field(&column_layout::name, "Conform"), Field(&column_layout::name, "Music")));
}

} // namespace tallyframe::window
