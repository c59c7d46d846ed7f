#include "platform/text/Counts.h"

#include <QLocale>

namespace zolt {

using namespace Qt::StringLiterals;

QString grouped(qint64 number)
{
    return QLocale().toString(number);
}

QString counted(qint64 count, const QString& noun)
{
    return grouped(count) + u' ' + noun + (count == 1 ? u""_s : u"s"_s);
}

QString clockText(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    const QString tail = u"%1:%2"_s.arg(seconds / 60 % 60, seconds < 3600 ? 1 : 2, 10, QChar(u'0'))
                             .arg(seconds % 60, 2, 10, QChar(u'0'));
    return seconds < 3600 ? tail : u"%1:%2"_s.arg(seconds / 3600).arg(tail);
}

} // namespace zolt
