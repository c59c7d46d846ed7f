#include "ui/Pictures.h"

#include <QSet>

#include <cmath>

namespace zolt::test {

QPalette lightPalette()
{
    return QPalette(QColor(0xef, 0xef, 0xef), QColor(0xef, 0xef, 0xef));
}

QPalette darkPalette()
{
    QPalette dark(QColor(0x35, 0x35, 0x35), QColor(0x2d, 0x2d, 0x2d));
    dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::AlternateBase, QColor(0x28, 0x28, 0x28));
    dark.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
    dark.setColor(QPalette::ToolTipBase, QColor(0x20, 0x20, 0x20));
    return dark;
}

qsizetype colourCount(const QImage& picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            colours += picture.pixel(x, y);
    }
    return colours.size();
}

namespace {

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace zolt::test
