// SPDX-License-Identifier: MIT
#include "window/main_menu.h"
#include "window/main_window_fixture.h"
#include "window/models/row_colors.h"

namespace tallyframe::window {

namespace {

class main_window_colors : public main_window_test {
protected:
    ~main_window_colors() override { show_as(appearance::system); }

    void show_as(appearance look) { emit find<main_menu>("mainMenu").appearance_chosen(look); }

    void expect_readable_rows()
    {
        const auto& view = find<QTableView>("previewTableView");
        const QColor background = view.palette().color(QPalette::Base);
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            const auto color = view.model()->index(row, 0).data(Qt::ForegroundRole).value<QColor>();
            EXPECT_GE(contrast(color, background), readable_contrast)
                << color.name().toStdString() << " on " << background.name().toStdString();
        }
    }
};

} // namespace

TEST_F(main_window_colors, of_rows_can_be_read_as_soon_as_the_appearance_changes)
{
    open(std::filesystem::path(EXAMPLES) / "night-market-premiere.xml");
    const auto& view = find<QTableView>("previewTableView");
    for (const appearance look :
         {appearance::dark, appearance::light, appearance::dark, appearance::system}) {
        show_as(look);
        QTest::qWait(1);
        EXPECT_EQ(view.palette().color(QPalette::Base).lightness() < 128, look == appearance::dark);
        expect_readable_rows();
    }
}

} // namespace tallyframe::window
