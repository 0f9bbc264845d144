// SPDX-License-Identifier: MIT
#include "window/panels/time_columns_editor.h"

#include "window/panels/wheel_with_focus.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace tallyframe::window {

namespace {

/// Edits the adjustments in a field with the limits and the sign that they have.
class adjustment_delegate final : public QStyledItemDelegate {
public:
    adjustment_delegate(time_columns_model& model, QObject* parent)
        : QStyledItemDelegate(parent), model_(model)
    {
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override
    {
        auto* field = new QSpinBox(parent);
        connect(field, &QSpinBox::valueChanged, field,
                [&model = model_, place = QPersistentModelIndex(index)](int frames) {
                    model.setData(place, frames, Qt::EditRole);
                });
        field->setRange(-static_cast<int>(adjustment_limit), static_cast<int>(adjustment_limit));
        field->setAutoFillBackground(true);
        take_wheel_with_focus_only(*field);
        field->setAccessibleName(time_columns_editor::tr("Frames to add"));
        return field;
    }

    /// The Tab key leads out of the fields as it does everywhere: a view would go round in its cells.
    bool eventFilter(QObject* field, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
                return false;
        }
        return QStyledItemDelegate::eventFilter(field, event);
    }

private:
    time_columns_model& model_;
};

void set_up(QTableView& table, bool has_adjustments)
{
    table.setSelectionBehavior(QAbstractItemView::SelectItems);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setShowGrid(false);
    table.setTabKeyNavigation(false);
    table.verticalHeader()->hide();
    const int row_height = QSpinBox().sizeHint().height();
    table.verticalHeader()->setDefaultSectionSize(row_height);
    table.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QHeaderView* header = table.horizontalHeader();
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setSectionResizeMode(time_columns_model::format_column, QHeaderView::Stretch);
    header->setVisible(has_adjustments);
    if (has_adjustments)
        header->setSectionResizeMode(time_columns_model::adjustment_column, QHeaderView::ResizeToContents);

    const int header_height = has_adjustments ? header->sizeHint().height() : 0;
    const int rows = static_cast<int>(time_formats.size());
    table.setFixedHeight(rows * row_height + header_height + 2 * table.frameWidth());
}

} // namespace

time_columns_editor::time_columns_editor(const QString& title, const QString& table_name,
                                         bool has_adjustments, QWidget* parent)
    : QGroupBox(title, parent), model_(has_adjustments), table_(new QTableView)
{
    table_->setObjectName(table_name);
    table_->setAccessibleName(title);
    table_->setModel(&model_);
    if (has_adjustments)
        table_->setItemDelegateForColumn(time_columns_model::adjustment_column,
                                         new adjustment_delegate(model_, table_));
    set_up(*table_, has_adjustments);

    up_button_ = add_move_button(false, table_name + "MoveUpButton");
    down_button_ = add_move_button(true, table_name + "MoveDownButton");
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(up_button_);
    buttons->addWidget(down_button_);
    buttons->addStretch();
    auto* row = new QHBoxLayout(this);
    row->addWidget(table_, 1, Qt::AlignTop);
    row->addLayout(buttons);

    connect(&model_, &time_columns_model::changed, this, &time_columns_editor::changed);
    connect(&model_, &QAbstractItemModel::modelReset, this, &time_columns_editor::open_fields);
    connect(&model_, &QAbstractItemModel::modelReset, this, &time_columns_editor::show_possible_moves);
    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &time_columns_editor::show_possible_moves);
    show_possible_moves();
}

QToolButton* time_columns_editor::add_move_button(bool down, const QString& object_name)
{
    auto* button = new QToolButton;
    button->setObjectName(object_name);
    button->setArrowType(down ? Qt::DownArrow : Qt::UpArrow);
    const QString text = down ? tr("Move the selected format down") : tr("Move the selected format up");
    button->setToolTip(text);
    button->setAccessibleName(text);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, [this, down] { move_current(down); });
    return button;
}

void time_columns_editor::move_current(bool down)
{
    const QModelIndex current = table_->currentIndex();
    if (!current.isValid())
        return;
    const int row = model_.move(current.row(), down);
    table_->setCurrentIndex(model_.index(row, current.column()));
}

void time_columns_editor::open_fields()
{
    for (int row = 0; row < model_.rowCount() && model_.columnCount() > 1; ++row) {
        const QModelIndex place = model_.index(row, time_columns_model::adjustment_column);
        table_->openPersistentEditor(place);
        table_->indexWidget(place)->findChild<QLineEdit*>()->deselect(); // the view selects what it opens
    }
}

void time_columns_editor::show_possible_moves()
{
    const QModelIndex current = table_->currentIndex();
    up_button_->setEnabled(current.isValid() && current.row() > 0);
    down_button_->setEnabled(current.isValid() && current.row() + 1 < model_.rowCount());
}

} // namespace tallyframe::window
