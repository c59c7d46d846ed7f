#include "ui/WrappedText.h"

#include <QFontMetrics>
#include <QTextLayout>

namespace zolt {

QStringList wrapped(const QString& text, const QFont& font, int width, int mostLines)
{
    QString all = text;
    all.replace(u'\n', u' ');
    QTextLayout layout(all, font);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == mostLines) {
            lines += QFontMetrics(font).elidedText(all.sliced(line.textStart()), Qt::ElideRight, width);
            break;
        }
        lines += all.sliced(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

} // namespace zolt
