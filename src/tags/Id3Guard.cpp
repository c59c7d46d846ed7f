#include "tags/Id3Guard.h"

#include "tags/Inflate.h"

#include <taglib/id3v2synchdata.h>

namespace zolt {

namespace {

using TagLib::ByteVector;

/// Chapters hold titles and links; those that hold chapters again come from no program.
constexpr int deepestChapter = 8;
/// More than any cover takes; counted over a whole tag.
constexpr size_t mostInflatedBytes = 32 << 20;

/// Goes through all frames and those within chapters as the library would, with a limit for each of its dangers.
class Inspection
{
public:
    explicit Inspection(const Id3Bytes& tag) : tag_(tag) {}

    bool passes(const ByteVector& frames, int depth)
    {
        if (depth > deepestChapter) return false;
        bool allPass = true;
        walkId3Frames(frames, tag_.version, [&](const ByteVector& rest, unsigned int length) {
            return allPass = framePasses(rest, length, depth);
        });
        return allPass;
    }

private:
    bool framePasses(const ByteVector& rest, unsigned int length, int depth)
    {
        const Id3FrameHeader header(rest, tag_.version);
        const auto fields = fieldsOf(decoded(rest, length, header), header);
        if (!fields) return false;
        if (header.frameID() == "CHAP") return passes(withinChapter(*fields), depth + 1);
        if (header.frameID() == "CTOC") return passes(withinContents(*fields), depth + 1);
        return true;
    }

    ByteVector decoded(const ByteVector& rest, unsigned int length, const Id3FrameHeader& header) const
    {
        if (tag_.version < 4 || !(tag_.unsynchronised || header.unsynchronisation())) return rest;
        const unsigned int headerSize = Id3FrameHeader::size(tag_.version);
        return rest.mid(0, headerSize) + TagLib::ID3v2::SynchData::decode(rest.mid(headerSize, length - headerSize));
    }

    /// What stands in the frame; absent if it inflates to too much.
    std::optional<ByteVector> fieldsOf(const ByteVector& frame, const Id3FrameHeader& header)
    {
        const unsigned int start = Id3FrameHeader::size(tag_.version);
        if (!header.compression() && !header.dataLengthIndicator()) return frame.mid(start, header.frameSize());
        const ByteVector content = frame.mid(start + 4);
        if (!header.compression() || header.encryption())
            return content.mid(0, TagLib::ID3v2::SynchData::toUInt(frame.mid(start, 4)));
        auto inflated = inflateWithin(content, mostInflatedBytes - inflatedBytes_);
        if (inflated) inflatedBytes_ += inflated->size();
        return inflated;
    }

    /// A name that a zero ends, and four numbers.
    static ByteVector withinChapter(const ByteVector& fields)
    {
        return fields.mid(static_cast<unsigned int>(fields.find('\0')) + 1 + 16);
    }

    /// A name that a zero ends, flags, a count and as many names.
    static ByteVector withinContents(const ByteVector& fields)
    {
        unsigned int at = static_cast<unsigned int>(fields.find('\0')) + 3;
        if (at > fields.size()) return {};
        for (int left = static_cast<unsigned char>(fields[at - 1]); left > 0; --left) {
            const int end = fields.find('\0', at);
            if (end < 0) return {};
            at = static_cast<unsigned int>(end) + 1;
        }
        return fields.mid(at);
    }

    const Id3Bytes& tag_;
    size_t inflatedBytes_ = 0;
};

bool holdsFrames(const ByteVector& bytes, unsigned int version)
{
    for (unsigned int at = 0; at < bytes.size(); ++at)
        if (bytes[at] != 0 && id3FrameLength(bytes.mid(at), version) > 0) return true;
    return false;
}

/// Frames without content end the walk, but hold nothing that could be lost.
ByteVector behindEmptyFrames(ByteVector rest, unsigned int version)
{
    const unsigned int headerSize = Id3FrameHeader::size(version);
    while (rest.size() >= headerSize && rest[0] != 0 && Id3FrameHeader(rest, version).frameSize() == 0)
        rest = rest.mid(headerSize);
    return rest;
}

/// True if frames, or the end of one, lie behind the place where the library ends its walk.
bool losesFrames(const Id3Bytes& tag)
{
    const unsigned int end = walkId3Frames(tag.frames, tag.version, [](const auto&, unsigned int) { return true; });
    const ByteVector rest = behindEmptyFrames(tag.frames.mid(end), tag.version);
    const bool isPadding = rest.size() <= Id3FrameHeader::size(tag.version) || rest[0] == 0;
    return holdsFrames(rest, tag.version) || (end > 0 && !isPadding);
}

} // namespace

bool hasHarmlessFrames(const Id3Bytes& tag)
{
    return Inspection(tag).passes(tag.frames, 0);
}

bool isReadWhole(const Id3Bytes& tag)
{
    if (tag.version == 0) return true;
    const bool isKnown = !tag.sizeIsBroken && tag.version >= 2 && tag.version <= 4;
    return isKnown && !losesFrames(tag);
}

} // namespace zolt
