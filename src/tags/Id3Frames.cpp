#include "tags/Id3Frames.h"

#include "platform/errors/Exceptions.h"
#include "tags/TagLibFiles.h"

#include <taglib/attachedpictureframe.h>
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

} // namespace

OptionalText firstFrameText(const TagLib::ID3v2::Tag& tag, const char* name)
{
    const TagLib::ID3v2::Frame* frame = firstFrame(tag, name);
    if (!frame) return std::nullopt;
    return textOf(frame->toString());
}

TagLib::ID3v2::AttachedPictureFrame* firstPicture(const TagLib::ID3v2::Tag& tag)
{
    return dynamic_cast<TagLib::ID3v2::AttachedPictureFrame*>(firstFrame(tag, "APIC"));
}

void addLatin1Frame(TagLib::ID3v2::Tag& tag, const char* name, const QString& text)
{
    auto frame = newFrame<TagLib::ID3v2::TextIdentificationFrame>(name, TagLib::String::Latin1);
    frame->setText(TagLib::String(text.toLatin1().constData(), TagLib::String::Latin1));
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
