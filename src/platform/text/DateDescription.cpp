#include "platform/text/DateDescription.h"

#include <QDateTime>

#include <cstdlib>

namespace zolt {

using namespace Qt::StringLiterals;

QString dateDescription(const QDateTime& date)
{
    const int offset = date.offsetFromUtc() / 60;
    const int minutes = std::abs(offset);
    return date.toString(u"yyyy-MM-dd HH:mm:ss "_s) + (offset < 0 ? u'-' : u'+') +
           u"%1%2"_s.arg(minutes / 60, 2, 10, QChar(u'0')).arg(minutes % 60, 2, 10, QChar(u'0'));
}

} // namespace zolt
