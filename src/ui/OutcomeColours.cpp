#include "ui/OutcomeColours.h"

#include <QPalette>

namespace zolt {

namespace {

QColor onLight(const Colour& colour)
{
    return QColor::fromRgbF(float(colour.red), float(colour.green), float(colour.blue), float(colour.alpha));
}

// Lightness at which a colour reads on a dark background with a contrast of at least 4.5 to 1.
constexpr float lightOnDark = 0.68F;

} // namespace

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightnessF() < palette.color(QPalette::Text).lightnessF();
}

QColor shownColour(const Colour& colour, const QPalette& palette)
{
    if (colour == Colour::text()) return palette.color(QPalette::Text);
    QColor shown = onLight(colour);
    if (isDark(palette)) shown.setHslF(shown.hslHueF(), shown.hslSaturationF() * 0.85F, lightOnDark, shown.alphaF());
    // Pure red is a little light on white; its own darker shade reads there.
    else if (colour == Colour::failure())
        shown = shown.darker(125);
    return shown;
}

} // namespace zolt
