#include "regex/Bookkeeping.h"

#include "platform/text/Text.h"
#include "regex/Log.h"

#include <cstdlib>

namespace zolt {

void abortOverBookkeeping(const char* condition, std::source_location where)
{
    const QString file = path::lastComponent(QString::fromUtf8(where.file_name()));
    qCCritical(regexLog, "%s:%ld: Invalid parameter not satisfying: %s\n", qUtf8Printable(file),
               static_cast<long>(where.line()), condition);
    std::abort();
}

} // namespace zolt
