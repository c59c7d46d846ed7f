#include "tags/Id3Frames.h"

#include "platform/errors/Exceptions.h"
#include "tags/TagLibFiles.h"

#include <taglib/attachedpictureframe.h>
#include <taglib/id3v2header.h>
#include <taglib/textidentificationframe.h>

#include <new>

namespace zolt {

namespace {

TagLib::ID3v2::Frame* firstFrame(const TagLib::ID3v2::Tag& tag, const char* name)
{
    const TagLib::ID3v2::FrameList& frames = tag.frameList(name);
    return frames.isEmpty() ? nullptr : frames.front();
}

template <class Frame, class... Arguments> std::unique_ptr<Frame> newFrame(Arguments&&... arguments)
{
    try {
        return std::make_unique<Frame>(std::forward<Arguments>(arguments)...);
    } catch (const std::bad_alloc&) {
        throw AssertionException(QStringLiteral("Unable to allocate memory."));
    }
}

bool isLatin1(const TagLib::ID3v2::Frame& frame)
{
    const auto* text = dynamic_cast<const TagLib::ID3v2::TextIdentificationFrame*>(&frame);
    return text && text->textEncoding() == TagLib::String::Latin1;
}

/// Each unit of the string is one byte of the frame.
QString textOfLatin1(const TagLib::String& string)
{
    const QString text = textOf(string);
    const QByteArray bytes = text.toLatin1();
    return QString::fromLatin1(bytes) == text ? decodeUtf8(bytes).value_or(text) : text;
}

QByteArray latin1OrUtf8(const QString& text)
{
    const QString letters = withoutZeros(text);
    const QByteArray bytes = letters.toLatin1();
    return QString::fromLatin1(bytes) == letters ? bytes : letters.toUtf8();
}

/// A frame's name before and since version 2.3.
struct FrameName
{
    const char* shorter;
    const char* name;
};
constexpr FrameName latin1Names[] = {{"TP2", "TPE2"}, {"TCM", "TCOM"}, {"TRK", "TRCK"}, {"TPA", "TPOS"}};

/// The first byte of a text, which tells its encoding: 0 for Latin-1. Nothing for what is packed or encrypted.
std::optional<char> encodingByte(const TagLib::ByteVector& frame, unsigned int version)
{
    const Id3FrameHeader header(frame, version);
    if (header.compression() || header.encryption()) return std::nullopt;
    const unsigned int at = Id3FrameHeader::size(version) + (header.dataLengthIndicator() ? 4 : 0);
    return at < frame.size() ? std::optional<char>(frame[at]) : std::nullopt;
}

/// For each frame of that name in the file, whether it is Latin-1.
std::vector<bool> latin1Frames(const Id3Bytes& stored, const FrameName& name)
{
    const char* const sought = stored.version < 3 ? name.shorter : name.name;
    std::vector<bool> found;
    walkId3Frames(stored.frames, stored.version, [&](const TagLib::ByteVector& frame, unsigned int) {
        if (frame.startsWith(sought)) found.push_back(encodingByte(frame, stored.version) == '\0');
        return true;
    });
    return found;
}

void makeLatin1(TagLib::ID3v2::Frame& frame)
{
    if (auto* text = dynamic_cast<TagLib::ID3v2::TextIdentificationFrame*>(&frame))
        text->setTextEncoding(TagLib::String::Latin1);
}

} // namespace

void keepLatin1Frames(TagLib::ID3v2::Tag& tag, const Id3Bytes& stored)
{
    for (const FrameName& name : latin1Names) {
        auto isStoredSo = latin1Frames(stored, name);
        const TagLib::ID3v2::FrameList& frames = tag.frameList(name.name);
        isStoredSo.resize(frames.size());
        auto frame = frames.begin();
        for (const bool isSo : isStoredSo) {
            if (isSo) makeLatin1(**frame);
            ++frame;
        }
    }
}

qint64 sizeInFile(const TagLib::ID3v2::Tag& tag)
{
    const TagLib::ID3v2::Header& header = *tag.header();
    return header.tagSize() > 0 ? header.completeTagSize() : 0;
}

OptionalText firstFrameText(const TagLib::ID3v2::Tag& tag, const char* name)
{
    const TagLib::ID3v2::Frame* frame = firstFrame(tag, name);
    if (!frame) return std::nullopt;
    return isLatin1(*frame) ? textOfLatin1(frame->toString()) : textOf(frame->toString());
}

TagLib::ID3v2::AttachedPictureFrame* firstPicture(const TagLib::ID3v2::Tag& tag)
{
    return dynamic_cast<TagLib::ID3v2::AttachedPictureFrame*>(firstFrame(tag, "APIC"));
}

void addLatin1Frame(TagLib::ID3v2::Tag& tag, const char* name, const QString& text)
{
    auto frame = newFrame<TagLib::ID3v2::TextIdentificationFrame>(name, TagLib::String::Latin1);
    frame->setText(TagLib::String(latin1OrUtf8(text).constData(), TagLib::String::Latin1));
    tag.addFrame(frame.release()); // the tag owns it from here on
}

void replaceLatin1Frame(TagLib::ID3v2::Tag& tag, const char* name, const QString& text)
{
    if (TagLib::ID3v2::Frame* old = firstFrame(tag, name)) tag.removeFrame(old);
    addLatin1Frame(tag, name, text);
}

void addPngFrame(TagLib::ID3v2::Tag& tag, const QByteArray& png)
{
    auto frame = newFrame<TagLib::ID3v2::AttachedPictureFrame>();
    frame->setMimeType("image/png");
    frame->setPicture(TagLib::ByteVector(png.constData(), static_cast<unsigned int>(png.size())));
    tag.addFrame(frame.release()); // the tag owns it from here on
}

} // namespace zolt
