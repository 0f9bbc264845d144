// SPDX-License-Identifier: MIT
#pragma once

#include "document/sequence_catalogue.h"

#include <QWidget>
#include <vector>

class QComboBox;
class QPushButton;

namespace tallyframe::window {

/// The line on top: open a document, choose what to report of it, analyse, save.
class document_bar final : public QWidget {
    Q_OBJECT

public:
    explicit document_bar(QWidget* parent = nullptr);

    /// Fills sequencesPopupMenu; its positions are those of the entries.
    void set_entries(const std::vector<catalogue_entry>& entries);

    void set_open_enabled(bool enabled);

    /// Enables or disables sequencesPopupMenu and analyzeButton.
    void set_menu_enabled(bool enabled);
    void set_save_enabled(bool enabled);

    int position() const;
    QString title() const;

signals:
    void open_requested();
    void analyze_requested();
    void save_requested();

    /// The user has chosen an entry of the menu.
    void entry_chosen(int position);

private:
    QComboBox* menu_;
    QPushButton* open_button_;
    QPushButton* analyze_button_;
    QPushButton* save_button_;
};

} // namespace tallyframe::window
