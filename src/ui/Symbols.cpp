#include "ui/Symbols.h"

#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

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
    QSvgRenderer renderer(drawing(name).replace("currentColor", colour.name().toLatin1()));
    const double side = std::min(place.width(), place.height());
    QRectF square(0, 0, side, side);
    square.moveCenter(place.center());
    renderer.render(&painter, square);
}

} // namespace zolt
