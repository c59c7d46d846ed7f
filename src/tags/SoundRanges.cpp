#include "tags/SoundRanges.h"

#include "platform/text/Text.h"
#include "shell/Constants.h"
#include "tags/FlacBlocks.h"
#include "tags/Id3Bytes.h"
#include "tags/mp4/Mp4Error.h"
#include "tags/mp4/Mp4Parser.h"

#include <QtEndian>

namespace zolt {

namespace {

/// The tag library may take a few bytes behind a tag for padding: so much is never counted as sound.
constexpr quint64 margin = 4096;

/// How far into a file an ID3v2 tag behind other bytes is looked for.
constexpr quint64 farthestTag = 1 << 20;

/// The bytes at the end of the range, as many as there are.
QByteArray tail(const RandomAccessFile& file, quint64 end, quint64 length)
{
    const quint64 count = std::min(end, length);
    return file.read(end - count, count);
}

/// Where the sound ends ahead of the tags of the older kinds, which stand last.
quint64 endOfSound(const RandomAccessFile& file)
{
    constexpr quint64 oldest = 128, foot = 32;
    quint64 end = file.size();
    if (end >= oldest && tail(file, end, oldest).startsWith("TAG")) end -= oldest;
    const QByteArray footer = tail(file, end, foot);
    if (!footer.startsWith("APETAGEX") || footer.size() < qsizetype(foot)) return end;
    const quint64 size = qFromLittleEndian<quint32>(footer.constData() + 12);
    const bool hasHeader = (qFromLittleEndian<quint32>(footer.constData() + 20) & 0x80000000U) != 0;
    const quint64 whole = size + (hasHeader ? foot : 0);
    return whole <= end ? end - whole : end;
}

/// An ID3v2 tag of an MP3 file that does not stand at its start; 0 for none.
quint64 endOfLaterTag(const RandomAccessFile& file)
{
    const Id3Bytes id3 = Id3Bytes::of(file.path(), Id3Place::BeforeSound);
    if (id3.version == 0) return 0;
    const qsizetype at = file.read(0, std::min(file.size(), farthestTag)).indexOf("ID3");
    return at < 0 ? 0 : quint64(at) + 10 + id3.frames.size();
}

quint64 endOfFrontTags(const RandomAccessFile& file)
{
    const QString& path = file.path();
    if (const qint64 blocks = endOfFlacBlocks(path)) return quint64(blocks);
    if (const qint64 id3 = endOfId3Tags(path)) return quint64(id3);
    return endOfLaterTag(file);
}

QList<ByteRange> mediaData(const RandomAccessFile& file)
{
    constexpr quint32 mediaDataType = 0x6d646174; // "mdat"
    QList<ByteRange> ranges;
    for (const Mp4FileAtom& atom : fileAtoms(file))
        if (atom.type == mediaDataType) ranges += {atom.offset + atom.headerSize, atom.stored() - atom.headerSize};
    return ranges;
}

QList<ByteRange> oneRange(const RandomAccessFile& file)
{
    const quint64 end = endOfSound(file);
    const quint64 start = std::min(endOfFrontTags(file) + margin, end);
    return {{start, end - start}};
}

} // namespace

QList<ByteRange> soundRanges(const RandomAccessFile& file)
try {
    const bool hasAtoms = path::extension(file.path()).toUpper() == Constants::M4A;
    return hasAtoms ? mediaData(file) : oneRange(file);
} catch (const Mp4Error&) {
    return {};
}

QList<ByteRange> movedRanges(const RandomAccessFile& file, const QList<ByteRange>& before)
{
    QList<ByteRange> now = soundRanges(file);
    if (now.size() != before.size()) return {};
    for (qsizetype i = 0; i < now.size(); ++i) {
        // Counted from the end: at its start a margin was left.
        if (now[i].end() < before[i].length) return {};
        now[i] = {now[i].end() - before[i].length, before[i].length};
    }
    return now;
}

} // namespace zolt
