// SPDX-License-Identifier: MIT
#include "window/desktop/look.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>

#ifdef TALLYFRAME_HAS_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#endif

namespace tallyframe::window {

namespace {

/// What the desktop says in its settings portal. False where there is none.
bool desktop_prefers_dark()
{
#ifdef TALLYFRAME_HAS_DBUS
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage read =
        QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                       "org.freedesktop.portal.Settings", "Read");
    read << "org.freedesktop.appearance"
         << "color-scheme";
    read.setAutoStartService(false);
    constexpr int patience = 500; // milliseconds
    const QDBusMessage reply = bus.call(read, QDBus::Block, patience);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return false;
    QVariant value = reply.arguments().constFirst();
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    constexpr uint prefers_dark = 1;
    return value.toUInt() == prefers_dark;
#else
    return false;
#endif
}

QPalette dark_palette()
{
    const QColor window(45, 46, 48);
    const QColor base(30, 31, 33);
    const QColor text(230, 230, 230);
    const QColor faint(130, 131, 134);
    const QColor accent(88, 148, 230);
    QPalette palette(window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(38, 39, 41));
    palette.setColor(QPalette::Button, QColor(58, 59, 62));
    palette.setColor(QPalette::ToolTipBase, QColor(58, 59, 62));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Highlight, QColor(52, 101, 164));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::LinkVisited, QColor(160, 140, 220));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

/// Dark colours hide the edges of the style's check boxes and radio buttons: this one draws them.
class edged_style final : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool is_round = element == PE_IndicatorRadioButton;
        if (!is_round && element != PE_IndicatorCheckBox && element != PE_IndicatorItemViewItemCheck)
            return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(option->palette.color(QPalette::PlaceholderText));
        painter->setBrush(Qt::NoBrush);
        const QRectF edge = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        if (is_round)
            painter->drawEllipse(edge);
        else
            painter->drawRect(edge);
        painter->restore();
    }
};

bool is_dark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

} // namespace

void apply_appearance(appearance look)
{
    QApplication::setPalette(QPalette()); // back to what the desktop gives
    const bool is_desktop_dark = is_dark(QApplication::palette());
    const bool wants_dark = look == appearance::dark
        || (look == appearance::system && !is_desktop_dark && desktop_prefers_dark());
    if (wants_dark && !is_desktop_dark) {
        QApplication::setStyle(new edged_style("fusion"));
        QApplication::setPalette(dark_palette());
    } else if (look == appearance::light && is_desktop_dark) {
        QApplication::setPalette(QPalette(QColor(239, 239, 239)));
    }
    QToolTip::setPalette(QApplication::palette());
}

} // namespace tallyframe::window
