// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/choices.h"

#include <QMenuBar>

class QAction;
class QActionGroup;

namespace tallyframe::window {

/// The commands of the menu bar that are not always there.
struct enabled_commands {
    bool open = false;
    bool analyze = false;
    bool save = false;
    bool tick = false;
};

/// The menu bar: every command of the window, with its shortcut.
class main_menu final : public QMenuBar {
    Q_OBJECT

public:
    explicit main_menu(QWidget* parent = nullptr);

    void set_recent_documents(const QStringList& paths);
    void set_appearance(appearance look);
    void set_enabled(const enabled_commands& commands);

signals:
    void open_requested();
    void document_chosen(const QString& path);
    void save_requested();
    void analyze_requested();
    void tick_all_requested(bool ticked);
    void layouts_requested();
    void appearance_chosen(tallyframe::window::appearance look);
    void guide_requested();
    void about_requested();

private:
    void add_file_menu();
    void add_report_menu();
    void add_view_menu();
    void add_help_menu();

    QAction* open_ = nullptr;
    QMenu* recent_ = nullptr;
    QAction* save_ = nullptr;
    QAction* analyze_ = nullptr;
    QAction* tick_all_ = nullptr;
    QAction* tick_none_ = nullptr;
    QActionGroup* appearances_ = nullptr;
};

} // namespace tallyframe::window
