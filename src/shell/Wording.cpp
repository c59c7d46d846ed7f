#include "shell/Wording.h"

#include "platform/text/Text.h"

#include <QLocale>
#include <QSet>

namespace zolt {

using namespace Qt::StringLiterals;

QString enumerated(QStringList names)
{
    if (names.size() < 2) return names.join(QString());
    const QString last = names.takeLast();
    return names.join(u", "_s) + u" and "_s + last;
}

QString filesInWords(const QStringList& files)
{
    QSet<QString> kinds;
    for (const QString& file : files)
        kinds += path::extension(file).toUpper();
    kinds.remove(QString());
    QStringList sorted = kinds.values();
    sorted.sort();
    return counted(files.size(), (enumerated(sorted) + u" file"_s).trimmed());
}

QString sizeInWords(std::int64_t bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

} // namespace zolt
