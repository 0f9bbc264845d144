// SPDX-License-Identifier: MIT
#include "support/xmeml_builder.h"
#include "window/main_window_fixture.h"

#include <QCheckBox>
#include <QScrollArea>
#include <QScrollBar>

namespace tallyframe::window {

namespace {

using testing_support::clip;
using testing_support::xmeml;

class main_window_wheel : public main_window_test {
protected:
    main_window_wheel()
    {
        open_text(xmeml()
                      .sequence("One", {.uuid = "one"})
                      .video_track({clip("A")})
                      .sequence("Two", {.uuid = "two"})
                      .video_track({clip("A")})
                      .text());
        choose(0);
        find<QCheckBox>("inpointThumbnailsCheckbox").setChecked(true); // the width can be changed then
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void bring_to_front(const QWidget& field)
    {
        show_page_of(field);
        QTest::qWait(1);
    }

    static void turn_wheel(QWidget& field, int angle)
    {
        turn_wheel_over(field, angle);
        QTest::qWait(1);
    }
};

} // namespace

TEST_F(main_window_wheel, changes_no_field_without_the_focus)
{
    ASSERT_EQ(fields().size(), 11U) << "sequence, three colors, layout, width, five adjustments";
    for (QWidget* field : fields()) {
        bring_to_front(*field);
        ASSERT_TRUE(field->isVisible() && field->isEnabled()) << field->objectName().toStdString();
        find<QTableView>("previewTableView").setFocus();
        const QString before = text_in(*field);
        for (const int angle : {-120, 120, -120})
            turn_wheel(*field, angle);
        wait_for_run();
        EXPECT_EQ(text_in(*field), before) << field->objectName().toStdString();
        EXPECT_FALSE(field->hasFocus()) << field->objectName().toStdString();
    }
}

TEST_F(main_window_wheel, changes_the_field_that_has_the_focus)
{
    for (QWidget* field : fields()) {
        if (field->objectName() == "layoutsAppPopupMenu")
            continue; // there is one only
        bring_to_front(*field);
        field->setFocus();
        const QString before = text_in(*field);
        turn_wheel(*field, -120);
        if (text_in(*field) == before)
            turn_wheel(*field, 120);
        wait_for_run();
        EXPECT_NE(text_in(*field), before) << field->objectName().toStdString();
    }
}

TEST_F(main_window_wheel, scrolls_the_page_behind_a_field_without_the_focus)
{
    window->resize(window->minimumSizeHint());
    for (const char* name : {"markerRowColorPopup", "layoutsAppPopupMenu"}) {
        auto& field = find<QComboBox>(name);
        bring_to_front(field);
        QWidget* behind = field.parentWidget();
        while (qobject_cast<QScrollArea*>(behind) == nullptr)
            behind = behind->parentWidget();
        auto* page = dynamic_cast<QScrollArea*>(behind);
        page->widget()->setMinimumHeight(3000);
        QTest::qWait(1);
        find<QTableView>("previewTableView").setFocus();
        turn_wheel(field, -120);
        EXPECT_GT(page->verticalScrollBar()->value(), 0) << name;
    }
}

} // namespace tallyframe::window
