#include "ui/PlainText.h"

#include "platform/files/FileNames.h"

#include <QTextDocument>

namespace zolt {

QString plainToolTip(const QString& text)
{
    return text.isEmpty() ? QString() : Qt::convertFromPlainText(readableName(text), Qt::WhiteSpaceNormal);
}

QString inReadingOrder(const QString& text, Qt::LayoutDirection direction)
{
    return direction == Qt::RightToLeft && !text.isRightToLeft() ? QChar(0x200E) + text : text; // left-to-right mark
}

} // namespace zolt
