// SPDX-License-Identifier: MIT
#include "window/panels/media_places_editor.h"

#include "window/panels/push_button.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

namespace tallyframe::window {

namespace {

void set_up_places(QTableView& table)
{
    table.setSelectionBehavior(QAbstractItemView::SelectItems);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setShowGrid(false);
    table.setTabKeyNavigation(false);
    table.setWordWrap(false);
    table.setTextElideMode(Qt::ElideMiddle);
    table.verticalHeader()->hide();
    const int row_height = table.fontMetrics().height() + 6;
    table.verticalHeader()->setDefaultSectionSize(row_height);
    QHeaderView* header = table.horizontalHeader();
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setSectionResizeMode(QHeaderView::Stretch);
    constexpr int least_rows = 3;
    table.setMinimumHeight(least_rows * row_height + header->sizeHint().height() + 2 * table.frameWidth());
}

} // namespace

media_places_editor::media_places_editor(QWidget* parent)
    : QGroupBox(tr("Media that has moved"), parent), table_(new QTableView)
{
    table_->setObjectName("mediaPlacesTableView");
    table_->setAccessibleName(title());
    table_->setToolTip(tr("Folders in which media is looked for when it is not where the timeline says"));
    table_->setModel(&model_);
    set_up_places(*table_);
    auto* hint = new QLabel(tr("Folders to look in when media is not where the timeline says:"));
    hint->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(hint);
    column->addWidget(table_, 1);
    column->addWidget(make_buttons());

    connect(&model_, &media_places_model::changed, this, &media_places_editor::changed);
    connect(&model_, &QAbstractItemModel::modelReset, this, &media_places_editor::show_what_can_be_removed);
    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &media_places_editor::show_what_can_be_removed);
    show_what_can_be_removed();
}

QWidget* media_places_editor::make_buttons()
{
    auto* add_button =
        make_button(tr("Add &Folder…"), "addMediaPlaceButton",
                    tr("A folder to search. To say which folder of the timeline it stands for, edit its "
                       "first column"));
    connect(add_button, &QPushButton::clicked, this, &media_places_editor::ask_for_folder);
    remove_button_ = make_button(tr("Re&move"), "removeMediaPlaceButton",
                                 tr("Do not look in the selected folder any more"));
    connect(remove_button_, &QPushButton::clicked, this, &media_places_editor::remove_current);

    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins({});
    row->addWidget(add_button);
    row->addWidget(remove_button_);
    row->addStretch();
    return buttons;
}

void media_places_editor::ask_for_folder()
{
    auto* dialog = new QFileDialog(window(), tr("Folder with Media"));
    dialog->setObjectName("mediaFolderDialog");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& folder) {
        table_->setCurrentIndex(model_.index(model_.add(folder), media_places_model::timeline_column));
    });
    dialog->open();
}

void media_places_editor::remove_current()
{
    const int row = table_->currentIndex().row();
    if (row < 0)
        return;
    model_.remove(row);
    table_->setCurrentIndex(model_.index(std::min(row, model_.rowCount() - 1), 0));
    show_what_can_be_removed();
}

void media_places_editor::show_what_can_be_removed()
{
    remove_button_->setEnabled(table_->currentIndex().isValid());
}

} // namespace tallyframe::window
