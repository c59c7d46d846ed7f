#include "ui/Symbols.h"

#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QtMath>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// The drawing's text; it says "currentColor" wherever it is to take the colour of the text around it.
QByteArray drawing(const QString& name)
{
    static QHash<QString, QByteArray> cache; // main thread only
    if (const auto known = cache.constFind(name); known != cache.constEnd()) return *known;
    QFile file(u":/icons/%1.svg"_s.arg(name));
    return cache[name] = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The drawing in that colour, kept: rows ask for theirs each time that they are painted.
/// @param side   in units of the window
/// @param ratio  the screen's pixels to a unit
QPixmap drawn(const QString& name, const QColor& colour, double side, double ratio)
{
    const int pixels = qCeil(side * ratio);
    const QString key = u"symbol %1 %2 %3 %4"_s.arg(name, colour.name()).arg(pixels).arg(ratio);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    picture = QPixmap(pixels, pixels);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QSvgRenderer(drawing(name).replace("currentColor", colour.name().toLatin1()))
        .render(&painter, QRectF(0, 0, side, side));
    QPixmapCache::insert(key, picture);
    return picture;
}

class SymbolEngine : public QIconEngine
{
public:
    explicit SymbolEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        paintSymbol(*painter, name_, rect, QApplication::palette().color(group, role));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new SymbolEngine(name_); }

private:
    QString name_;
};

} // namespace

QIcon symbolIcon(const QString& name)
{
    return QIcon::hasThemeIcon(name) ? QIcon::fromTheme(name) : QIcon(new SymbolEngine(name));
}

void paintSymbol(QPainter& painter, const QString& name, const QRectF& place, const QColor& colour)
{
    const double side = std::min(place.width(), place.height());
    const QPixmap picture = drawn(name, colour, side, painter.device()->devicePixelRatioF());
    painter.drawPixmap(place.center() - QPointF(side, side) / 2, picture);
}

} // namespace zolt
