#include "tags/FileKind.h"

#include "platform/files/NamedFile.h"
#include "tags/Id3Bytes.h"

#include <QtEndian>

#include <taglib/mpegfile.h>

namespace zolt {

namespace {

/// What other kinds of sound begin with. Bytes within them may pass for MPEG sound.
constexpr const char* otherKinds[] = {"fLaC", "OggS", "RIFF", "RF64", "FORM", "MAC ",
                                      "wvpk", "TTA1", "TTA2", "ajkg", "caff", "\x1a\x45\xdf\xa3"};

QByteArray bytesBehindTags(const QString& path, qint64 count)
{
    NamedFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(endOfId3Tags(file))) return {};
    return file.read(count);
}

bool isOtherKind(const QByteArray& start)
{
    const auto begins = [&](const char* letters) { return start.startsWith(letters); };
    return start.sliced(std::min<qsizetype>(4, start.size())).startsWith("ftyp") ||
           std::any_of(std::begin(otherKinds), std::end(otherKinds), begins);
}

/// True if the file ends with a chunk, or with too few bytes for one more.
bool chunksEndWithin(QFile& file)
{
    qint64 at = 12;
    while (file.seek(at)) {
        const QByteArray chunk = file.read(8);
        if (chunk.size() < 8) return true;
        const qint64 size = qFromBigEndian<quint32>(chunk.constData() + 4);
        if (at + 8 + size > file.size()) return false;
        at += 8 + size + size % 2;
    }
    return true;
}

} // namespace

bool startsWithLetters(const QString& path, const char* letters)
{
    return bytesBehindTags(path, 4) == letters;
}

bool holdsMpegSound(TagLib::MPEG::File& file, const QString& path)
{
    return !isOtherKind(bytesBehindTags(path, 8)) && file.firstFrameOffset() >= 0;
}

bool isWholeAiff(const QString& path)
{
    NamedFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray start = file.read(12);
    return start.startsWith("FORM") && (start.endsWith("AIFF") || start.endsWith("AIFC")) && chunksEndWithin(file);
}

} // namespace zolt
