#include "tags/TagWriteRun.h"

#include "shell/Wording.h"

using namespace Qt::StringLiterals;

namespace zolt {

qsizetype TagWriteRun::written() const
{
    return std::count_if(files.begin(), files.end(), [](const File& file) { return !file.refusal; });
}

bool TagWriteRun::isWritten(const QString& path) const
{
    return std::any_of(files.begin(), files.end(),
                       [&](const File& file) { return file.path == path && !file.refusal; });
}

QString TagWriteRun::sentence() const
{
    if (asked == 0) return {};
    QStringList parts{u"%1 of %2 written."_s.arg(written()).arg(counted(asked, u"file"_s))};
    for (const File& file : files)
        if (file.refusal) parts += path::lastComponent(file.path) + u": "_s + *file.refusal;
    for (const QString& path : unkept)
        if (isWritten(path)) parts += path::lastComponent(path) + u" cannot be undone."_s;
    if (asked > files.size()) parts += u"%1 behind it not written."_s.arg(asked - files.size());
    return parts.join(u' ');
}

QString TagWriteRun::progress() const
{
    return u"Writing %1 of %2..."_s.arg(files.size() + 1).arg(counted(asked, u"file"_s));
}

} // namespace zolt
