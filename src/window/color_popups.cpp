// SPDX-License-Identifier: MIT
#include "window/color_popups.h"

#include "window/qt_text.h"
#include "window/row_colors.h"
#include "workbook/format.h"

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

constexpr color_popup popups[] = {
    {"videoRowColorPopup", &report_options::video_row_color, QT_TRANSLATE_NOOP("color_popup", "Video rows:"),
     QT_TRANSLATE_NOOP("color_popup", "Text color of the rows of video clips and titles")},
    {"audioRowColorPopup", &report_options::audio_row_color, QT_TRANSLATE_NOOP("color_popup", "Audio rows:"),
     QT_TRANSLATE_NOOP("color_popup", "Text color of the rows of audio clips")},
    {"markerRowColorPopup", &report_options::marker_row_color,
     QT_TRANSLATE_NOOP("color_popup", "Marker rows:"),
     QT_TRANSLATE_NOOP("color_popup", "Text color of the rows of markers")},
};

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

std::span<const color_popup> row_color_popups()
{
    return popups;
}

color_popups::color_popups(QWidget* parent) : QWidget(parent)
{
    auto* form = new QFormLayout(this);
    form->setContentsMargins({});
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const color_popup& entry : popups) {
        auto* popup = new QComboBox;
        popup->setObjectName(entry.object_name);
        popup->setToolTip(QCoreApplication::translate("color_popup", entry.tool_tip));
        for (const std::string_view name : xls::color_names())
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
        popups_[i]->setCurrentText(qt_text(options.*popups[i].option));
}

void color_popups::apply_to(report_options& options) const
{
    for (std::size_t i = 0; i < popups_.size(); ++i)
        options.*popups[i].option = popups_[i]->currentText().toStdString();
}

} // namespace tallyframe::window
