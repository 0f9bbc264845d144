// SPDX-License-Identifier: MIT
#include "window/main_menu.h"

#include "window/models/qt_text.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QDir>
#include <QFileInfo>

namespace tallyframe::window {

namespace {

/// A name in a menu, where "&" would mark a key and a tabulator begin the shortcut.
QString menu_text(QString name)
{
    return name.replace('&', "&&").replace('\t', ' ');
}

} // namespace

main_menu::main_menu(QWidget* parent) : QMenuBar(parent)
{
    setObjectName("mainMenu");
    add_file_menu();
    add_report_menu();
    add_view_menu();
    add_help_menu();
    set_enabled({.open = true});
}

void main_menu::set_recent_documents(const QStringList& paths)
{
    recent_->clear();
    for (const QString& path : paths) {
        QAction* action = recent_->addAction(menu_text(QFileInfo(path).fileName()));
        action->setToolTip(tool_tip_text(QDir::toNativeSeparators(path)));
        connect(action, &QAction::triggered, this, [this, path] { emit document_chosen(path); });
    }
    recent_->setEnabled(open_->isEnabled() && !paths.isEmpty());
}

void main_menu::set_appearance(appearance look)
{
    appearances_->actions().at(static_cast<int>(look))->setChecked(true);
}

void main_menu::set_enabled(const enabled_commands& commands)
{
    open_->setEnabled(commands.open);
    recent_->setEnabled(commands.open && !recent_->isEmpty());
    analyze_->setEnabled(commands.analyze);
    save_->setEnabled(commands.save);
    tick_all_->setEnabled(commands.tick);
    tick_none_->setEnabled(commands.tick);
}

void main_menu::add_file_menu()
{
    QMenu* menu = addMenu(tr("&File"));
    open_ = menu->addAction(tr("&Open…"), QKeySequence::Open, this, &main_menu::open_requested);
    recent_ = menu->addMenu(tr("Open &Recent"));
    recent_->setToolTipsVisible(true);
    menu->addSeparator();
    save_ = menu->addAction(tr("&Save Report…"), QKeySequence::Save, this, &main_menu::save_requested);
    menu->addSeparator();
    QAction* quit = menu->addAction(tr("&Quit"), QKeySequence::Quit, qApp, &QApplication::closeAllWindows);
    quit->setMenuRole(QAction::QuitRole);
}

void main_menu::add_report_menu()
{
    QMenu* menu = addMenu(tr("&Report"));
    analyze_ = menu->addAction(tr("&Analyze"), Qt::CTRL | Qt::Key_R, this, &main_menu::analyze_requested);
    menu->addSeparator();
    tick_all_ = menu->addAction(tr("Tick A&ll Tracks"), Qt::CTRL | Qt::SHIFT | Qt::Key_A, this,
                                [this] { emit tick_all_requested(true); });
    tick_none_ = menu->addAction(tr("Tick &No Track"), Qt::CTRL | Qt::SHIFT | Qt::Key_N, this,
                                 [this] { emit tick_all_requested(false); });
    menu->addSeparator();
    menu->addAction(tr("Column La&youts…"), Qt::CTRL | Qt::Key_L, this, &main_menu::layouts_requested);
}

void main_menu::add_view_menu()
{
    QMenu* menu = addMenu(tr("&View"));
    appearances_ = new QActionGroup(this);
    const QString titles[] = {tr("As the &System"), tr("&Light"), tr("&Dark")};
    for (const appearance look : {appearance::system, appearance::light, appearance::dark}) {
        QAction* action = menu->addAction(titles[static_cast<int>(look)]);
        action->setCheckable(true);
        appearances_->addAction(action);
        connect(action, &QAction::triggered, this, [this, look] { emit appearance_chosen(look); });
    }
}

void main_menu::add_help_menu()
{
    QMenu* menu = addMenu(tr("&Help"));
    menu->addAction(tr("&Guide"), QKeySequence::HelpContents, this, &main_menu::guide_requested);
    QAction* about = menu->addAction(tr("&About Tallyframe"), this, &main_menu::about_requested);
    about->setMenuRole(QAction::AboutRole);
}

} // namespace tallyframe::window
