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
    constexpr QChar leftToRight(0x200E);
    const bool isInOrder = direction != Qt::RightToLeft || text.isRightToLeft() || text.startsWith(leftToRight);
    return isInOrder ? text : leftToRight + text + leftToRight;
}

} // namespace zolt
