// SPDX-License-Identifier: MIT
#include "window/panels/document_bar.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>

namespace tallyframe::window {

TEST(document_bar, counts_the_entries_of_its_menu_as_the_catalogue_does)
{
    document_bar bar;
    EXPECT_EQ(bar.position(), -1);
    bar.set_entries({{"Bin Clips", ""}, {"", std::string(separator_uuid)}, {"Reel 1", "one"}});
    EXPECT_EQ(bar.position(), 0);
    EXPECT_EQ(bar.title(), "Bin Clips");
    bar.findChild<QComboBox*>("sequencesPopupMenu")->setCurrentIndex(2);
    EXPECT_EQ(bar.position(), 2);
    EXPECT_EQ(bar.title(), "Reel 1");
    bar.set_entries({});
    EXPECT_EQ(bar.position(), -1);
    EXPECT_EQ(bar.title(), "");
}

TEST(document_bar, allows_at_first_to_open_alone)
{
    document_bar bar;
    const QSignalSpy opened(&bar, &document_bar::open_requested);
    const QSignalSpy analyzed(&bar, &document_bar::analyze_requested);
    const QSignalSpy saved(&bar, &document_bar::save_requested);
    const auto click_all = [&] {
        for (const char* name : {"openDocumentButton", "analyzeButton", "saveReportButton"})
            bar.findChild<QPushButton*>(name)->click();
    };
    const auto clicks = [&] {
        return QString("%1 %2 %3").arg(opened.count()).arg(analyzed.count()).arg(saved.count());
    };
    click_all();
    EXPECT_EQ(clicks(), "1 0 0");
    bar.set_open_enabled(false);
    bar.set_menu_enabled(true);
    bar.set_save_enabled(true);
    click_all();
    EXPECT_EQ(clicks(), "1 1 1");
}

} // namespace tallyframe::window
