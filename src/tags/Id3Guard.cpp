#include "tags/Id3Guard.h"

#include "platform/files/FileNames.h"
#include "platform/files/NamedFile.h"

#include <QFile>
#include <QtEndian>

#include <taglib/id3v2frame.h>
#include <taglib/id3v2header.h>
#include <taglib/id3v2synchdata.h>
#include <taglib/mpegheader.h>
#include <taglib/tfile.h>

namespace zolt {

namespace {

using TagLib::ByteVector;

/// Each level of chapters takes some hundred bytes of stack in the library; files have a few hundred chapters in a row.
constexpr int mostChapters = 1000;
/// A byte inflates to a thousand at most, so that this many compressed bytes stay below 16 MiB.
constexpr unsigned int mostCompressedBytes = 16 * 1024;
/// How far from its start a file is searched for a tag behind other bytes.
constexpr unsigned long mostBytesBefore = 64 * 1024;

constexpr qint64 tagHeaderSize = 10;

/// The library reads the headers of frames, but shows them to frames alone.
struct FrameParts : TagLib::ID3v2::Frame
{
    using TagLib::ID3v2::Frame::Header;
};
using FrameHeader = FrameParts::Header;

int chaptersIn(const QByteArray& tag)
{
    return static_cast<int>(tag.count("CHAP") + tag.count("CTOC"));
}

bool isFrameName(const char* name)
{
    return std::all_of(name, name + 4, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

/// The compressed bytes of the frame at the start of `data`.
unsigned int compressedBytes(const ByteVector& data, unsigned int version)
{
    const FrameHeader header(data, version);
    return header.compression() ? std::min(header.frameSize(), data.size()) : 0;
}

/// Those of the frames inside a chapter, which begin at no fixed place.
unsigned int compressedBytesWithin(const ByteVector& chapter, unsigned int version)
{
    unsigned int sum = 0;
    for (unsigned int at = 10; at + 10 < chapter.size(); ++at) {
        if (!isFrameName(chapter.data() + at)) continue;
        const ByteVector inner = chapter.mid(at);
        const FrameHeader header(inner, version);
        if (header.frameSize() + 10 <= inner.size()) sum += compressedBytes(inner, version);
    }
    return sum;
}

bool isChapter(const ByteVector& frame)
{
    return frame.startsWith("CHAP") || frame.startsWith("CTOC");
}

/// The compressed bytes of all frames; walks as the library does.
unsigned int compressedBytesOf(const ByteVector& frames, unsigned int version)
{
    const unsigned int headerSize = FrameHeader::size(version);
    unsigned int sum = 0;
    for (unsigned int at = 0; at + headerSize < frames.size() && frames[at] != 0;) {
        const ByteVector rest = frames.mid(at);
        const FrameHeader header(rest, version);
        sum += compressedBytes(rest, version);
        if (isChapter(rest)) {
            const ByteVector chapter = rest.mid(0, header.frameSize() + headerSize);
            sum += compressedBytesWithin(
                header.unsynchronisation() ? TagLib::ID3v2::SynchData::decode(chapter) : chapter, version);
        }
        if (header.frameSize() == 0 || header.frameSize() > rest.size()) break;
        at += header.frameSize() + headerSize;
    }
    return sum;
}

bool isHarmless(const QByteArray& tag)
{
    if (chaptersIn(tag) > mostChapters) return false;
    const TagLib::ID3v2::Header header(ByteVector(tag.constData(), static_cast<unsigned int>(tag.size())));
    ByteVector frames(tag.constData() + tagHeaderSize, static_cast<unsigned int>(tag.size() - tagHeaderSize));
    if (header.unsynchronisation() && header.majorVersion() < 4) frames = TagLib::ID3v2::SynchData::decode(frames);
    if (header.extendedHeader()) frames = frames.mid(TagLib::ID3v2::SynchData::toUInt(frames.mid(0, 4)));
    return compressedBytesOf(frames, header.majorVersion()) <= mostCompressedBytes;
}

/// The tag that begins at `at`, its header included; empty if none does.
QByteArray tagAt(QFile& file, qint64 at)
{
    if (!file.seek(at)) return {};
    const QByteArray head = file.read(tagHeaderSize);
    if (head.size() < tagHeaderSize || !head.startsWith("ID3")) return {};
    const TagLib::ID3v2::Header header(ByteVector(head.constData(), tagHeaderSize));
    return head + file.read(header.tagSize());
}

/// Where the ID3 chunk of an AIFF file has its tag; -1 if there is none.
qint64 placeInChunks(QFile& file)
{
    for (qint64 at = 12; file.seek(at);) {
        const QByteArray chunk = file.read(8);
        if (chunk.size() < 8) return -1;
        if (chunk.left(4).toUpper() == "ID3 ") return at + 8;
        const qint64 size = qFromBigEndian<quint32>(chunk.constData() + 4);
        at += 8 + size + size % 2;
    }
    return -1;
}

/// A file of the library with nothing but its bytes.
class PlainFile : public TagLib::File
{
public:
    explicit PlainFile(const QString& path) : TagLib::File(bytesOfName(path).constData()) {}

    TagLib::Tag* tag() const override { return nullptr; }
    TagLib::AudioProperties* audioProperties() const override { return nullptr; }
    bool save() override { return false; }
};

/// Where a tag begins ahead of the sound, as the library finds it; -1 if sound comes first, in which the same letters
/// mean nothing.
qint64 placeBeforeSound(const QString& path)
{
    PlainFile file(path);
    const auto soundAt = [&](unsigned int at) { return TagLib::MPEG::Header(&file, at, true).isValid(); };
    const ByteVector start = file.readBlock(mostBytesBefore);
    if (soundAt(0)) return -1;
    for (unsigned int at = 0; at < start.size(); ++at) {
        if (start.containsAt("ID3", at)) return at;
        if (start[at] == '\xff' && soundAt(at)) return -1;
    }
    return -1;
}

qint64 placeOfTag(QFile& file, Id3Place place)
{
    const QByteArray start = file.read(4);
    if (start == "FORM") return placeInChunks(file);
    if (start.startsWith("ID3")) return 0;
    return place == Id3Place::BeforeSound ? placeBeforeSound(file.fileName()) : -1;
}

} // namespace

bool hasHarmlessFrames(const QString& path, Id3Place place)
{
    NamedFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return true;
    const qint64 start = placeOfTag(file, place);
    const QByteArray tag = start < 0 ? QByteArray() : tagAt(file, start);
    return tag.isEmpty() || isHarmless(tag);
}

} // namespace zolt
