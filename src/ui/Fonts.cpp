#include "ui/Fonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>

namespace zolt {

namespace {

/// Any family that the database holds for one of fixed pitch; an empty name where it knows none.
QString someFixedFamily()
{
    const QStringList families = QFontDatabase::families();
    const auto found = std::find_if(families.begin(), families.end(), [](const QString& family) {
        return QFontDatabase::isSmoothlyScalable(family) && keepsPitch(QFont(family));
    });
    return found == families.end() ? QString() : *found;
}

} // namespace

bool keepsPitch(const QFont& font)
{
    // Measured: what the database says of a face is wrong for several that every desktop has, both ways.
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(u'i');
    return width > 0 && width == metrics.horizontalAdvance(u'W') && width == metrics.horizontalAdvance(u'.');
}

QFont shownFont(const Font& font)
{
    QFont shown(font.family);
    if (!keepsPitch(shown)) shown = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!keepsPitch(shown)) shown = QFont(someFixedFamily());
    if (font.pointSize > 0) shown.setPointSizeF(font.pointSize);
    return shown;
}

} // namespace zolt
