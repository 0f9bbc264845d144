// SPDX-License-Identifier: MIT
#include "window/models/row_colors.h"

#include "writers/text_colors.h"

#include <cmath>

namespace tallyframe::window {

namespace {

/// Relative luminance of sRGB, as the Web Content Accessibility Guidelines define it.
double luminance(const QColor& color)
{
    const auto linear = [](float channel) {
        const auto value = static_cast<double>(channel);
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}

QColor row_color(std::string_view name)
{
    const auto rgb = color_value(name);
    return rgb ? QColor::fromRgb(static_cast<QRgb>(*rgb)) : QColor();
}

QColor readable_on(const QColor& background, const QColor& color)
{
    constexpr double dark = 0.2;
    constexpr float step = 0.05F;
    if (luminance(background) > dark)
        return color;
    QColor lighter = color.toHsl();
    while (contrast(lighter, background) < readable_contrast && lighter.lightnessF() < 1.0F) {
        lighter.setHslF(lighter.hslHueF(), lighter.hslSaturationF(),
                        std::fmin(lighter.lightnessF() + step, 1.0F));
    }
    return lighter.toRgb();
}

} // namespace tallyframe::window
