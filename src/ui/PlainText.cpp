#include "ui/PlainText.h"

#include <QTextDocument>

namespace zolt {

QString plainToolTip(const QString& text)
{
    return text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

} // namespace zolt
