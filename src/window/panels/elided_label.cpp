// SPDX-License-Identifier: MIT
#include "window/panels/elided_label.h"

#include <QPainter>

namespace tallyframe::window {

elided_label::elided_label(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize elided_label::sizeHint() const
{
    return {0, fontMetrics().height()};
}

void elided_label::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width()));
}

} // namespace tallyframe::window
