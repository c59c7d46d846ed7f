#include "tags/FlacBlocks.h"

#include "platform/files/NamedFile.h"
#include "tags/Id3Bytes.h"

#include <QtEndian>

#include <functional>

namespace zolt {

namespace {

constexpr qint64 headerSize = 4;

bool isMadeAnew(int kind)
{
    constexpr int padding = 1, comments = 4, picture = 6;
    return kind == padding || kind == comments || kind == picture;
}

/// Opens the file and leaves it behind the mark that its blocks begin with.
bool openAtBlocks(NamedFile& file)
{
    return file.open(QIODevice::ReadOnly) && file.seek(endOfId3Tags(file)) && file.read(4) == "fLaC";
}

/// Goes through the blocks. @param visit  gets the kind and the length of each, its header not included
/// @return where they end; 0 for a file that is none, or whose blocks are cut
qint64 walkBlocks(const QString& path, const std::function<void(int kind, qint64 length)>& visit)
{
    NamedFile file(path);
    if (!openAtBlocks(file)) return 0;
    for (bool isLast = false; !isLast;) {
        const QByteArray header = file.read(headerSize);
        if (header.size() < headerSize) return 0;
        isLast = (header[0] & 0x80) != 0;
        const qint64 length = qFromBigEndian<quint32>(header.constData()) & 0xff'ffff;
        visit(header[0] & 0x7f, length);
        if (!file.seek(file.pos() + length)) return 0;
    }
    return file.pos();
}

} // namespace

std::optional<FlacStream> flacStream(const QString& path)
{
    constexpr qint64 blockSize = 34;
    constexpr qsizetype numbers = headerSize + 10; // 20 bits of rate, 3 of channels less one
    NamedFile file(path);
    if (!openAtBlocks(file)) return std::nullopt;
    const QByteArray block = file.read(headerSize + blockSize);
    if (block.size() < headerSize + blockSize || (block[0] & 0x7f) != 0) return std::nullopt;
    const quint32 bits = qFromBigEndian<quint32>(block.constData() + numbers);
    if (bits >> 12 == 0) return std::nullopt;
    return FlacStream{int(bits >> 12), int(bits >> 9 & 7) + 1};
}

qint64 sizeOfFlacTags(const QString& path)
{
    qint64 sum = 0;
    walkBlocks(path, [&](int kind, qint64 length) {
        if (isMadeAnew(kind)) sum += headerSize + length;
    });
    return sum;
}

qint64 endOfFlacBlocks(const QString& path)
{
    return walkBlocks(path, [](int, qint64) {});
}

} // namespace zolt
