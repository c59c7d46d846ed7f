#include "checksum/ChecksumList.h"

#include "platform/Product.h"
#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "platform/files/NamedFile.h"
#include "platform/text/DateDescription.h"

#include <QDateTime>

namespace zolt::checksumList {

namespace {

const QString placeholder = QStringLiteral("%@");

} // namespace

QString header(const QString& format)
{
    const QStringList pieces = splitAt(format, placeholder);
    return pieceAt(pieces, 0) + QLatin1String(product::version) + pieceAt(pieces, 1) +
           dateDescription(QDateTime::currentDateTime()) + pieceAt(pieces, 2);
}

bool write(const QString& path, const QString& text)
{
    return writeTextAtomically(path, readableName(text));
}

OptionalText text(const QString& path)
{
    NamedFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return decodeUtf8(file.readAll());
}

QStringList lines(const QString& path)
{
    const OptionalText whole = text(path);
    return whole ? splitIntoLines(*whole) : QStringList();
}

QString besideList(const QString& list, const QString& name)
{
    return path::appendingComponent(path::deletingLastComponent(list), name);
}

} // namespace zolt::checksumList
