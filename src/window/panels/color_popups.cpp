// SPDX-License-Identifier: MIT
#include "window/panels/color_popups.h"

#include "window/models/qt_text.h"
#include "window/models/row_color_popups.h"
#include "window/models/row_colors.h"
#include "window/panels/wheel_with_focus.h"
#include "writers/text_colors.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>

namespace tallyframe::window {

namespace {

QIcon swatch(const QColor& color, qreal device_pixel_ratio)
{
    constexpr int side = 14;
    QPixmap pixmap(QSize(side, side) * device_pixel_ratio);
    pixmap.setDevicePixelRatio(device_pixel_ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(QColor(128, 128, 128)); // white and black need an edge on some background
    painter.setBrush(color);
    painter.drawRect(0, 0, side - 1, side - 1);
    return pixmap;
}

} // namespace

color_popups::color_popups(QWidget* parent) : QWidget(parent)
{
    auto* form = new QFormLayout(this);
    form->setContentsMargins({});
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const color_popup& entry : row_color_popups()) {
        auto* popup = new QComboBox;
        popup->setObjectName(entry.object_name);
        take_wheel_with_focus_only(*popup);
        popup->setToolTip(QCoreApplication::translate("color_popup", entry.tool_tip));
        for (const std::string_view name : color_names())
            popup->addItem(swatch(row_color(name), devicePixelRatioF()), qt_text(name));
        connect(popup, &QComboBox::currentIndexChanged, this, &color_popups::changed);
        form->addRow(QCoreApplication::translate("color_popup", entry.title), popup);
        popups_.push_back(popup);
    }
}

void color_popups::set_options(const report_options& options)
{
    const QSignalBlocker quiet(this);
    for (std::size_t i = 0; i < popups_.size(); ++i)
        popups_[i]->setCurrentText(qt_text(options.*row_color_popups()[i].option));
}

void color_popups::apply_to(report_options& options) const
{
    for (std::size_t i = 0; i < popups_.size(); ++i)
        options.*row_color_popups()[i].option = popups_[i]->currentText().toStdString();
}

} // namespace tallyframe::window
