// SPDX-License-Identifier: MIT
#include "window/panels/preview_panel.h"

#include "window/models/qt_text.h"
#include "window/models/row_colors.h"
#include "window/panels/elided_label.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <vector>

namespace tallyframe::window {

namespace {

/// Rows that are looked at to find a column's width: the first screens, not a document of 60 000 rows.
constexpr std::size_t rows_to_measure = 500;

/// Characters beyond which a column is cut on the screen, so that one path does not hide what is beside it.
constexpr double widest_column = 60;

QString counts_text(int row_count, int column_count, const track_counts& tracks)
{
    const QLocale locale;
    const QString in_rows = row_count == 1 ? preview_panel::tr("1 row")
                                           : preview_panel::tr("%1 rows").arg(locale.toString(row_count));
    const QString in_columns = column_count == 1
        ? preview_panel::tr("1 column")
        : preview_panel::tr("%1 columns").arg(locale.toString(column_count));
    QStringList parts = {in_rows, in_columns};
    if (tracks.left_out > 0)
        parts << preview_panel::tr("%1 of %2 tracks left out")
                     .arg(locale.toString(qlonglong{tracks.left_out}),
                          locale.toString(qlonglong{tracks.all}));
    return parts.join(", ");
}

void set_up_preview(QTableView& view)
{
    view.setObjectName("previewTableView");
    view.setAccessibleName(preview_panel::tr("Preview of the clips sheet"));
    view.setSelectionMode(QAbstractItemView::ContiguousSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setWordWrap(false);
    view.setTabKeyNavigation(false);
    view.setCornerButtonEnabled(false);
    view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() + 6);
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    view.horizontalHeader()->setHighlightSections(false);
}

} // namespace

preview_panel::preview_panel(QWidget* parent)
    : QWidget(parent), view_(new QTableView), summary_(new elided_label), counts_(new QLabel)
{
    set_up_preview(*view_);
    view_->setModel(&model_);
    view_->installEventFilter(this);
    summary_->setObjectName("summaryLabel");
    counts_->setObjectName("countsLabel");

    auto* line = new QHBoxLayout;
    line->addWidget(summary_, 1);
    line->addWidget(counts_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addLayout(line);
    column->addWidget(view_, 1);
}

void preview_panel::show_report(report shown, const report_options& options, const track_counts& tracks)
{
    const QModelIndex kept = view_->currentIndex();
    const int row = kept.row();
    const int column = kept.column();
    model_.set_sheet(nullptr);
    report_ = std::move(shown);
    model_.set_sheet(&report_.sheets.front());
    fit_columns();
    video_color_ = row_color(options.video_row_color);
    audio_color_ = row_color(options.audio_row_color);
    show_colors();
    counts_->setText(counts_text(model_.rowCount(), model_.columnCount(), tracks));
    if (row >= 0)
        view_->setCurrentIndex(model_.index(std::min(row, model_.rowCount() - 1), column));
}

void preview_panel::set_summary(const QString& summary)
{
    summary_->setText(summary);
    summary_->setToolTip(tool_tip_text(summary));
}

void preview_panel::clear()
{
    model_.set_sheet(nullptr);
    report_ = {};
    summary_->clear();
    counts_->clear();
}

bool preview_panel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == view_ && event->type() == QEvent::PaletteChange)
        show_colors();
    return QWidget::eventFilter(watched, event);
}

void preview_panel::show_colors()
{
    const QColor background = view_->palette().color(QPalette::Base);
    model_.set_row_colors(readable_on(background, video_color_), readable_on(background, audio_color_));
}

void preview_panel::fit_columns()
{
    const int character = view_->fontMetrics().horizontalAdvance('0');
    const int margin = 2 * character;
    const std::vector<double> widths = widths_after(report_.sheets.front(), rows_to_measure);
    for (int column = 0; column < model_.columnCount(); ++column) {
        const auto place = static_cast<std::size_t>(column);
        const double width = place < widths.size() ? widths[place] : 0;
        const int pixels = static_cast<int>(std::min(width, widest_column) * character) + margin;
        const int header = view_->horizontalHeader()->sectionSizeHint(column);
        view_->setColumnWidth(column, std::max(pixels, header));
    }
}

} // namespace tallyframe::window
