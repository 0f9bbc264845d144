// SPDX-License-Identifier: MIT
#include "window/panels/tracks_panel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <utility>

namespace tallyframe::window {

namespace {

void set_up_tracks(QTableView& table)
{
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setShowGrid(false);
    table.setTabKeyNavigation(false);
    table.setWordWrap(false);
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
    QHeaderView* header = table.horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionResizeMode(track_table_model::label_column, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(track_table_model::name_column, QHeaderView::Stretch);
    header->setSectionResizeMode(track_table_model::item_count_column, QHeaderView::ResizeToContents);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

} // namespace

tracks_panel::tracks_panel(const QString& title, const QString& table_name, QWidget* parent)
    : QGroupBox(title, parent), table_(new QTableView)
{
    table_->setObjectName(table_name);
    table_->setAccessibleName(title);
    table_->setModel(&model_);
    set_up_tracks(*table_);
    table_->viewport()->installEventFilter(this);

    auto* column = new QVBoxLayout(this);
    column->addWidget(table_);
    add_buttons(table_name);

    auto* only_this = new QAction(tr("Tick &Only This Track"), table_);
    only_this->setShortcut(Qt::ALT | Qt::Key_Return);
    only_this->setShortcutContext(Qt::WidgetShortcut);
    connect(only_this, &QAction::triggered, this, &tracks_panel::tick_only_current);
    table_->addAction(only_this);
    table_->setContextMenuPolicy(Qt::ActionsContextMenu);

    connect(&model_, &track_table_model::ticks_changed, this, &tracks_panel::ticks_changed);
    set_rows({});
}

void tracks_panel::set_rows(std::vector<track_row> rows)
{
    tick_all_button_->setEnabled(!rows.empty());
    tick_none_button_->setEnabled(!rows.empty());
    model_.set_rows(std::move(rows));
}

void tracks_panel::tick_only_current()
{
    if (table_->currentIndex().isValid())
        model_.tick_only_row(table_->currentIndex().row());
}

bool tracks_panel::eventFilter(QObject* watched, QEvent* event)
{
    const bool is_click = event->type() == QEvent::MouseButtonPress
        || event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick;
    if (watched != table_->viewport() || !is_click)
        return QGroupBox::eventFilter(watched, event);
    const auto* click = static_cast<QMouseEvent*>(event);
    const QModelIndex row = table_->indexAt(click->position().toPoint());
    if (!click->modifiers().testFlag(Qt::AltModifier) || !row.isValid())
        return QGroupBox::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonRelease) {
        table_->setCurrentIndex(row);
        model_.tick_only_row(row.row());
    }
    return true; // or the table would turn the tick over once more
}

void tracks_panel::add_buttons(const QString& table_name)
{
    tick_all_button_ = new QPushButton(tr("All"));
    tick_all_button_->setObjectName(table_name + "TickAllButton");
    tick_all_button_->setToolTip(tr("Tick every track of this table"));
    tick_all_button_->setAccessibleName(tr("Tick all: %1").arg(title()));
    tick_none_button_ = new QPushButton(tr("None"));
    tick_none_button_->setObjectName(table_name + "TickNoneButton");
    tick_none_button_->setToolTip(tr("Untick every track of this table"));
    tick_none_button_->setAccessibleName(tr("Tick none: %1").arg(title()));
    connect(tick_all_button_, &QPushButton::clicked, this, [this] { model_.tick_every_row(true); });
    connect(tick_none_button_, &QPushButton::clicked, this, [this] { model_.tick_every_row(false); });

    auto* row = new QHBoxLayout;
    row->addWidget(tick_all_button_);
    row->addWidget(tick_none_button_);
    row->addStretch();
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

} // namespace tallyframe::window
