#include "ui/PlainText.h"

#include "platform/files/FileNames.h"

#include <QTextDocument>

namespace zolt {

QString plainToolTip(const QString& text)
{
    return text.isEmpty() ? QString() : Qt::convertFromPlainText(readableName(text), Qt::WhiteSpaceNormal);
}

} // namespace zolt
