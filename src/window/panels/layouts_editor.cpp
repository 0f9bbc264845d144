// SPDX-License-Identifier: MIT
#include "window/panels/layouts_editor.h"

#include "report/column_switches.h"
#include "window/models/qt_text.h"
#include "window/models/saved_layouts.h"
#include "window/panels/push_button.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

namespace tallyframe::window {

namespace {

constexpr int checkbox_rows = 9; // three columns of nine hold the 25

} // namespace

layouts_editor::layouts_editor(std::vector<column_layout> layouts, const std::string& chosen, QWidget* parent)
    : QDialog(parent), model_(std::move(layouts)), names_(new QListView)
{
    setObjectName("layoutsEditor");
    setWindowTitle(tr("Column Layouts"));
    setWindowModality(Qt::WindowModal);

    auto* sides = new QHBoxLayout;
    sides->addWidget(make_names_side(), 2);
    sides->addWidget(make_checkboxes_side(), 5);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addLayout(sides);
    column->addWidget(buttons);

    connect(names_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &layouts_editor::show_current);
    connect(&model_, &layouts_model::name_refused, this, &layouts_editor::set_message);
    connect(&model_, &layouts_model::name_accepted, this, &layouts_editor::show_current);
    const std::size_t position = find_layout(chosen, model_.layouts());
    select(position < model_.layouts().size() ? static_cast<int>(position) + 1 : 0, false);
}

std::string layouts_editor::chosen_name() const
{
    return model_.can_change(current_row()) ? model_.layout_at(current_row()).name : std::string();
}

QWidget* layouts_editor::make_names_side()
{
    names_->setObjectName("layoutsListView");
    names_->setAccessibleName(tr("Layouts"));
    names_->setModel(&model_);
    names_->setSpacing(2);
    names_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);

    auto* new_button =
        make_button(tr("&New"), "newLayoutButton", tr("A new layout with the default's columns"));
    auto* duplicate_button =
        make_button(tr("D&uplicate"), "duplicateLayoutButton", tr("A new layout with this one's columns"));
    rename_button_ = make_button(tr("&Rename"), "renameLayoutButton", tr("Give this layout another name"));
    delete_button_ = make_button(tr("&Delete"), "deleteLayoutButton", tr("Delete this layout"));
    connect(new_button, &QPushButton::clicked, this,
            [this] { select(model_.add_copy(0, tr("New layout")), true); });
    connect(duplicate_button, &QPushButton::clicked, this, [this] {
        const QString name = qt_text(model_.layout_at(current_row()).name);
        select(model_.add_copy(current_row(), tr("%1 copy").arg(name)), true);
    });
    connect(rename_button_, &QPushButton::clicked, this, [this] { select(current_row(), true); });
    connect(delete_button_, &QPushButton::clicked, this, [this] {
        const int row = current_row();
        model_.remove(row);
        select(std::min(row, model_.rowCount() - 1), false);
    });

    auto* buttons = new QGridLayout;
    buttons->addWidget(new_button, 0, 0);
    buttons->addWidget(duplicate_button, 0, 1);
    buttons->addWidget(rename_button_, 1, 0);
    buttons->addWidget(delete_button_, 1, 1);

    auto* side = new QGroupBox(tr("Layouts"));
    auto* column = new QVBoxLayout(side);
    column->addWidget(names_);
    column->addLayout(buttons);
    return side;
}

QWidget* layouts_editor::make_checkboxes_side()
{
    auto* side = new QGroupBox(tr("Columns of \"All Reels\""));
    auto* column = new QVBoxLayout(side);
    auto* grid = new QGridLayout;
    for (const column_switch_entry& entry : all_column_switches) {
        auto* box = new QCheckBox(qt_text(entry.title));
        box->setObjectName(qt_text(entry.title));
        connect(box, &QCheckBox::toggled, this,
                [this, title = entry.title](bool on) { model_.set_column(current_row(), title, on); });
        const int place = static_cast<int>(boxes_.size());
        grid->addWidget(box, place % checkbox_rows, place / checkbox_rows);
        boxes_.push_back(box);
    }
    column->addLayout(grid);

    all_button_ = make_button(tr("&All"), "allColumnsButton", tr("Switch every column on"));
    none_button_ = make_button(tr("Non&e"), "noColumnsButton", tr("Switch every column off"));
    connect(all_button_, &QPushButton::clicked, this, [this] { set_all(true); });
    connect(none_button_, &QPushButton::clicked, this, [this] { set_all(false); });
    message_ = new QLabel;
    message_->setObjectName("layoutsMessage");
    message_->setWordWrap(true);
    message_->setTextFormat(Qt::PlainText);
    auto* row = new QHBoxLayout;
    row->addWidget(all_button_);
    row->addWidget(none_button_);
    row->addWidget(message_, 1);
    column->addStretch();
    column->addLayout(row);
    return side;
}

int layouts_editor::current_row() const
{
    return std::max(names_->currentIndex().row(), 0);
}

void layouts_editor::select(int row, bool edit_name)
{
    const QModelIndex index = model_.index(row);
    names_->setCurrentIndex(index);
    show_current();
    if (edit_name)
        names_->edit(index);
}

void layouts_editor::show_current()
{
    const bool can_change = model_.can_change(current_row());
    const column_layout layout = model_.layout_at(current_row());
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        const QSignalBlocker quiet(boxes_[i]);
        boxes_[i]->setChecked(is_on(layout, all_column_switches[i].title));
        boxes_[i]->setEnabled(can_change);
    }
    for (QPushButton* button : {rename_button_, delete_button_, all_button_, none_button_})
        button->setEnabled(can_change);
    set_message(can_change ? tr("\"Clip Name\" is always there.")
                           : tr("The default layout cannot be changed. Duplicate it to make your own."));
}

void layouts_editor::set_all(bool on)
{
    for (QCheckBox* box : boxes_)
        box->setChecked(on);
}

void layouts_editor::set_message(const QString& text)
{
    message_->setText(text);
}

} // namespace tallyframe::window
