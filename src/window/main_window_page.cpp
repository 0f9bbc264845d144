// SPDX-License-Identifier: MIT
#include "window/main_window_page.h"

#include "window/panels/account_label.h"
#include "window/panels/document_bar.h"
#include "window/panels/left_out_line.h"
#include "window/panels/message_page.h"
#include "window/panels/options_panel.h"
#include "window/panels/preview_panel.h"
#include "window/panels/saved_banner.h"
#include "window/panels/tracks_panel.h"
#include "window/runs/document_texts.h"

#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tallyframe::window {

main_window_page::main_window_page(QWidget* parent)
    : QWidget(parent), bar(new document_bar),
      video_tracks(new tracks_panel(tr("Video tracks"), "videoTracksTableView")),
      audio_tracks(new tracks_panel(tr("Audio tracks"), "audioTracksTableView")), options(new options_panel),
      preview(new preview_panel), message(new message_page), document_losses(new account_label),
      left_out(new left_out_line), banner(new saved_banner), middle_(new QStackedWidget)
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(bar);
    column->addWidget(make_sides(), 1);
}

void main_window_page::bring_preview_to_front()
{
    middle_->setCurrentWidget(preview);
}

void main_window_page::show_message(const page_texts& texts)
{
    message->set_texts(texts.headline, texts.text, texts.offers_open);
    middle_->setCurrentWidget(message);
}

bool main_window_page::shows_preview() const
{
    return middle_->currentWidget() == preview;
}

QWidget* main_window_page::make_tracks() const
{
    auto* tracks = new QSplitter(Qt::Vertical);
    tracks->addWidget(video_tracks);
    tracks->addWidget(audio_tracks);
    tracks->setChildrenCollapsible(false);
    return tracks;
}

QWidget* main_window_page::make_middle()
{
    middle_->addWidget(message);
    middle_->addWidget(preview);
    document_losses->setObjectName("documentLosses");
    auto* middle = new QWidget;
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins({});
    column->addWidget(document_losses);
    column->addWidget(left_out);
    column->addWidget(banner);
    column->addWidget(middle_, 1);
    return middle;
}

QWidget* main_window_page::make_sides()
{
    auto* sides = new QSplitter;
    sides->addWidget(make_tracks());
    sides->addWidget(make_middle());
    sides->addWidget(options);
    sides->setChildrenCollapsible(false);
    constexpr int tracks_width = 230;
    constexpr int middle_width = 710;
    sides->setSizes({tracks_width, middle_width, options->minimumSizeHint().width()});
    sides->setStretchFactor(0, 0);
    sides->setStretchFactor(1, 1);
    sides->setStretchFactor(2, 0);
    return sides;
}

} // namespace tallyframe::window
