#include "tags/Id3Bytes.h"

#include "platform/files/FileNames.h"
#include "platform/files/NamedFile.h"

#include <QtEndian>

#include <taglib/id3v2header.h>
#include <taglib/id3v2synchdata.h>
#include <taglib/mpegheader.h>
#include <taglib/tfile.h>

namespace zolt {

namespace {

using TagLib::ByteVector;

/// How far from its start a file is searched for a tag behind other bytes.
constexpr unsigned long mostBytesBefore = 64 * 1024;

constexpr qint64 tagHeaderSize = 10;

bool isNameLetter(char letter)
{
    return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
}

/// One old writer fills names of three letters up with a zero.
bool isFrameName(const ByteVector& name)
{
    return name.size() >= 3 && std::all_of(name.begin(), name.begin() + 3, isNameLetter) &&
           (name.size() == 3 || isNameLetter(name[3]) || name[3] == '\0');
}

/// The header of the tag that begins where the file stands; empty if none does.
QByteArray readTagHeader(QFile& file)
{
    const QByteArray head = file.read(tagHeaderSize);
    return head.size() == tagHeaderSize && head.startsWith("ID3") ? head : QByteArray();
}

TagLib::ID3v2::Header parsedHeader(const QByteArray& head)
{
    return TagLib::ID3v2::Header(ByteVector(head.constData(), static_cast<unsigned int>(head.size())));
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

Id3Bytes Id3Bytes::of(const QString& path, Id3Place place)
{
    NamedFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const qint64 start = placeOfTag(file, place);
    if (start < 0 || !file.seek(start)) return {};
    const QByteArray head = readTagHeader(file);
    if (head.isEmpty()) return {};
    const TagLib::ID3v2::Header header = parsedHeader(head);
    const QByteArray body = file.read(header.tagSize());
    Id3Bytes tag{header.majorVersion(), header.unsynchronisation(), false, {}};
    tag.sizeIsBroken = std::any_of(head.end() - 4, head.end(), [](char byte) { return (byte & 0x80) != 0; });
    tag.frames = ByteVector(body.constData(), static_cast<unsigned int>(body.size()));
    if (tag.unsynchronised && tag.version < 4) tag.frames = TagLib::ID3v2::SynchData::decode(tag.frames);
    if (header.extendedHeader()) tag.frames = tag.frames.mid(TagLib::ID3v2::SynchData::toUInt(tag.frames.mid(0, 4)));
    return tag;
}

unsigned int id3FrameLength(const ByteVector& bytes, unsigned int version)
{
    const unsigned int headerSize = Id3FrameHeader::size(version);
    if (bytes.size() <= headerSize) return 0;
    const Id3FrameHeader header(bytes, version);
    const unsigned int least = header.dataLengthIndicator() ? 4 : 0;
    const bool fits = header.frameSize() > least && header.frameSize() <= bytes.size();
    return fits && isFrameName(header.frameID()) ? header.frameSize() + headerSize : 0;
}

unsigned int walkId3Frames(const ByteVector& frames, unsigned int version,
                           const std::function<bool(const ByteVector& rest, unsigned int length)>& visit)
{
    unsigned int at = 0;
    while (at < frames.size() && frames[at] != 0) {
        const ByteVector rest = frames.mid(at);
        const unsigned int length = id3FrameLength(rest, version);
        if (length == 0 || !visit(rest, length)) break;
        at += length;
    }
    return at;
}

qint64 endOfId3Tags(QFile& file)
{
    qint64 end = 0;
    while (file.seek(end)) {
        const QByteArray head = readTagHeader(file);
        if (head.isEmpty()) break;
        end += parsedHeader(head).completeTagSize();
    }
    return end;
}

qint64 endOfId3Tags(const QString& path)
{
    NamedFile file(path);
    return file.open(QIODevice::ReadOnly) ? endOfId3Tags(file) : 0;
}

} // namespace zolt
