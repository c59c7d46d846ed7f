#include "tags/FlacBlocks.h"

#include "platform/files/NamedFile.h"
#include "tags/Id3Bytes.h"

#include <QtEndian>

namespace zolt {

namespace {

constexpr qint64 headerSize = 4;

bool isMadeAnew(int kind)
{
    constexpr int padding = 1, comments = 4, picture = 6;
    return kind == padding || kind == comments || kind == picture;
}

} // namespace

qint64 sizeOfFlacTags(const QString& path)
{
    NamedFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return 0;
    if (!file.seek(endOfId3Tags(path)) || file.read(4) != "fLaC") return 0;
    qint64 sum = 0;
    for (bool isLast = false; !isLast;) {
        const QByteArray header = file.read(headerSize);
        if (header.size() < headerSize) break;
        isLast = (header[0] & 0x80) != 0;
        const qint64 length = qFromBigEndian<quint32>(header.constData()) & 0xff'ffff;
        if (isMadeAnew(header[0] & 0x7f)) sum += headerSize + length;
        if (!file.seek(file.pos() + length)) break;
    }
    return sum;
}

} // namespace zolt
