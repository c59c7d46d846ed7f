// Small drawings in the colours of the present palette.
#pragma once

#include <QIcon>
#include <QString>

class QPainter;
class QRectF;

namespace zolt {

/// The desktop theme's icon of that name, or the bundled drawing of the same name, which is drawn in the palette's
/// text colour at whatever size is asked for. Main thread.
QIcon symbolIcon(const QString& name);

/// Draws the bundled drawing in the colour. Main thread.
void paintSymbol(QPainter& painter, const QString& name, const QRectF& place, const QColor& colour);

} // namespace zolt
