#include "platform/files/FileUris.h"

#include "platform/files/FileNames.h"

#include <QSysInfo>

namespace zolt {

namespace {

bool isThisMachine(const QString& host)
{
    return host.isEmpty() || host == u"localhost" || host == QSysInfo::machineHostName().toLower();
}

} // namespace

OptionalText pathOfUri(const QUrl& uri)
{
    if (!uri.isLocalFile() || !isThisMachine(uri.host())) return std::nullopt;
    // By the bytes: as a text the address has numbers left where they are no UTF-8.
    return nameOfBytes(QByteArray::fromPercentEncoding(uri.path(QUrl::FullyEncoded).toLatin1()));
}

QString uriOfPath(const QString& path)
{
    return QStringLiteral("file://") + QString::fromLatin1(bytesOfName(path).toPercentEncoding("/"));
}

} // namespace zolt
