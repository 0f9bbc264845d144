// SPDX-License-Identifier: MIT
#include "window/panels/left_out_line.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace tallyframe::window {

left_out_line::left_out_line(QWidget* parent) : QWidget(parent), label_(new QLabel)
{
    label_->setObjectName("leftOutLabel");
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    auto* button = new QPushButton(tr("&List Them"));
    button->setObjectName("listUnidentifiedButton");
    button->setToolTip(tr("Read the document again, with sequences that have no identifier (uuid)"));
    connect(button, &QPushButton::clicked, this, &left_out_line::listing_requested);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(label_, 1);
    row->addWidget(button);
    hide();
}

void left_out_line::set_count(std::size_t left_out)
{
    label_->setText(left_out == 1 ? tr("1 sequence without an identifier is not listed.")
                                  : tr("%1 sequences without an identifier are not listed.")
                                        .arg(QLocale().toString(static_cast<qulonglong>(left_out))));
    setVisible(left_out != 0);
}

} // namespace tallyframe::window
