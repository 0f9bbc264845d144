// SPDX-License-Identifier: MIT
#include "window/panels/message_page.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallyframe::window {

namespace {

QLabel* centered_label(const QString& object_name)
{
    auto* label = new QLabel;
    label->setObjectName(object_name);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

message_page::message_page(QWidget* parent)
    : QWidget(parent), headline_(centered_label("messageHeadline")), text_(centered_label("messageText")),
      open_button_(new QPushButton(tr("Open…")))
{
    setObjectName("messagePage");
    QFont large = headline_->font();
    constexpr double enlargement = 1.6;
    large.setPointSizeF(large.pointSizeF() * enlargement);
    headline_->setFont(large);
    open_button_->setObjectName("openButton");
    open_button_->setToolTip(tr("Choose an exported timeline (Ctrl+O)"));
    open_button_->setDefault(true);
    connect(open_button_, &QPushButton::clicked, this, &message_page::open_requested);

    auto* column = new QVBoxLayout(this);
    constexpr int margin = 32;
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(margin / 2);
    column->addStretch(2);
    column->addWidget(headline_);
    column->addWidget(text_);
    column->addWidget(open_button_, 0, Qt::AlignCenter);
    column->addStretch(3);
}

void message_page::set_texts(const QString& headline, const QString& text, bool offers_open)
{
    headline_->setText(headline);
    text_->setText(text);
    open_button_->setVisible(offers_open);
}

void message_page::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(palette().color(QPalette::Mid), 2, Qt::DashLine);
    painter.setPen(pen);
    painter.setBrush(palette().color(QPalette::Base));
    constexpr double corner = 10;
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), corner, corner);
}

} // namespace tallyframe::window
