// SPDX-License-Identifier: MIT
#include "window/panels/media_places_editor.h"

#include <gmock/gmock.h>

#include <QPushButton>
#include <QTableView>

using testing::ElementsAre;

namespace tallyframe::window {

TEST(media_places_editor, removes_the_selected_place)
{
    media_places_editor editor;
    editor.model().set_places({{"", "/a"}, {"", "/b"}, {"", "/c"}});
    auto* remove = editor.findChild<QPushButton*>("removeMediaPlaceButton");
    auto* table = editor.findChild<QTableView*>("mediaPlacesTableView");
    EXPECT_FALSE(remove->isEnabled());
    table->setCurrentIndex(editor.model().index(1, 1));
    remove->click();
    remove->click();
    EXPECT_THAT(editor.model().places(), ElementsAre(media_place{"", "/a"}));
    remove->click();
    EXPECT_FALSE(remove->isEnabled());
    EXPECT_EQ(editor.model().rowCount(), 0);
}

} // namespace tallyframe::window
