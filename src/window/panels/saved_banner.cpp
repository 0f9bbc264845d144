// SPDX-License-Identifier: MIT
#include "window/panels/saved_banner.h"

#include "window/desktop/desktop_workspace.h"
#include "window/models/qt_text.h"
#include "window/panels/account_label.h"
#include "window/panels/alert_sheet.h"
#include "window/panels/elided_label.h"
#include "window/runs/failure_texts.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tallyframe::window {

saved_banner::saved_banner(QWidget* parent)
    : QFrame(parent), text_(new elided_label), lost_(new account_label)
{
    setObjectName("savedBanner");
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    text_->setObjectName("savedText");
    lost_->setObjectName("savedLosses");

    auto* open_button = new QPushButton(tr("Open &Workbook"));
    open_button->setObjectName("openWorkbookButton");
    open_button->setToolTip(tr("Open the workbook in the spreadsheet application"));
    connect(open_button, &QPushButton::clicked, this, [this] {
        say_if_not(open_file(path_), tr("No application on this computer opens Excel workbooks."));
    });
    auto* folder_button = new QPushButton(tr("Show in &Folder"));
    folder_button->setObjectName("showInFolderButton");
    folder_button->setToolTip(tr("Show the workbook in the file browser"));
    connect(folder_button, &QPushButton::clicked, this,
            [this] { say_if_not(show_in_folder(path_), tr("No file browser answered on this computer.")); });
    auto* close_button = new QToolButton;
    close_button->setObjectName("closeBannerButton");
    close_button->setText("×"); // a style's icon may be dark on dark
    close_button->setAutoRaise(true);
    close_button->setToolTip(tr("Close this message"));
    close_button->setAccessibleName(close_button->toolTip());
    close_button->setFocusPolicy(Qt::StrongFocus);
    connect(close_button, &QToolButton::clicked, this, &QWidget::hide);

    auto* row = new QHBoxLayout;
    row->addWidget(text_, 1);
    row->addWidget(open_button);
    row->addWidget(folder_button);
    row->addWidget(close_button);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 4, 4, 4);
    column->addLayout(row);
    column->addWidget(lost_);
    hide();
}

void saved_banner::show_saved(const QString& path, const account& lost)
{
    path_ = path;
    const QFileInfo file(path);
    text_->setText(tr("Saved %1").arg(file.fileName()));
    text_->setToolTip(tool_tip_text(QDir::toNativeSeparators(path)));
    lost_->show_account(lost);
    show();
}

void saved_banner::say_if_not(bool done, const QString& sentence)
{
    if (!done)
        show_alert(window(),
                   {sentence, tr("The workbook is here:\n%1").arg(QDir::toNativeSeparators(path_))});
}

} // namespace tallyframe::window
