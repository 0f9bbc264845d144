// SPDX-License-Identifier: MIT
#include "window/panels/document_bar.h"

#include "window/models/qt_text.h"
#include "window/panels/push_button.h"
#include "window/panels/wheel_with_focus.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tallyframe::window {

document_bar::document_bar(QWidget* parent) : QWidget(parent), menu_(new QComboBox)
{
    menu_->setObjectName("sequencesPopupMenu");
    menu_->setToolTip(tr("What this timeline holds: its sequences, and the clips of its bins"));
    menu_->setPlaceholderText(tr("No timeline is open"));
    constexpr int least_characters = 24;
    menu_->setMinimumContentsLength(least_characters);
    menu_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int most_lines = 30;
    menu_->setMaxVisibleItems(most_lines);
    take_wheel_with_focus_only(*menu_);
    auto* label = new QLabel(tr("Se&quence:"));
    label->setBuddy(menu_);

    open_button_ = make_button(tr("&Open…"), "openDocumentButton", tr("Open an exported timeline (Ctrl+O)"));
    analyze_button_ = make_button(tr("&Analyze"), "analyzeButton",
                                  tr("Read the chosen sequence and show its clips (Ctrl+R)"));
    save_button_ = make_button(tr("&Save Report…"), "saveReportButton",
                               tr("Write the report as an Excel workbook (Ctrl+S)"));
    save_button_->setDefault(true);
    connect(open_button_, &QPushButton::clicked, this, &document_bar::open_requested);
    connect(analyze_button_, &QPushButton::clicked, this, &document_bar::analyze_requested);
    connect(save_button_, &QPushButton::clicked, this, &document_bar::save_requested);
    connect(menu_, &QComboBox::activated, this, &document_bar::entry_chosen);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(open_button_);
    row->addSpacing(12);
    row->addWidget(label);
    row->addWidget(menu_, 1);
    row->addWidget(analyze_button_);
    row->addSpacing(12);
    row->addWidget(save_button_);
    set_menu_enabled(false);
    set_save_enabled(false);
}

void document_bar::set_entries(const std::vector<catalogue_entry>& entries)
{
    menu_->clear();
    for (const catalogue_entry& entry : entries) {
        if (entry.is_separator())
            menu_->insertSeparator(menu_->count());
        else
            menu_->addItem(shown_text(entry.title));
    }
    menu_->setCurrentIndex(entries.empty() ? -1 : 0);
}

void document_bar::set_open_enabled(bool enabled)
{
    open_button_->setEnabled(enabled);
}

void document_bar::set_menu_enabled(bool enabled)
{
    menu_->setEnabled(enabled);
    analyze_button_->setEnabled(enabled);
}

void document_bar::set_save_enabled(bool enabled)
{
    save_button_->setEnabled(enabled);
}

int document_bar::position() const
{
    return menu_->currentIndex();
}

QString document_bar::title() const
{
    return menu_->currentText();
}

} // namespace tallyframe::window
