// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QStackedWidget;

namespace tallyframe::window {

class account_label;
class document_bar;
class left_out_line;
class message_page;
class options_panel;
class preview_panel;
class saved_banner;
class tracks_panel;
struct page_texts;

/// All that the window has below its menu. On top the line of the document; then, side by side, the tracks,
/// the preview or what to do next while there is none, and the options.
class main_window_page final : public QWidget {
    Q_OBJECT

public:
    explicit main_window_page(QWidget* parent = nullptr);

    void bring_preview_to_front();
    void show_message(const page_texts& texts);
    bool shows_preview() const;

    document_bar* const bar;
    tracks_panel* const video_tracks;
    tracks_panel* const audio_tracks;
    options_panel* const options;
    preview_panel* const preview;
    message_page* const message;
    account_label* const document_losses; ///< what mending took from the document
    left_out_line* const left_out;
    saved_banner* const banner;

private:
    QWidget* make_tracks() const;
    QWidget* make_middle();
    QWidget* make_sides();

    QStackedWidget* middle_; ///< the message and the preview
};

} // namespace tallyframe::window
