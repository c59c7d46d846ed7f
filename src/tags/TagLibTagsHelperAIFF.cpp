// AIFF: an ID3v2 tag with a smaller writer than MP3, without totals, pictures and the choice of writing empty fields.
#include "tags/Id3Frames.h"
#include "tags/TagLibFiles.h"

#include <taglib/aifffile.h>

namespace zolt {

template <> bool isOfKind(TagLib::RIFF::AIFF::File&, const QString& path)
{
    return isWholeAiff(path);
}

template <> void keepEncodings(TagLib::RIFF::AIFF::File& file, const Id3Bytes& id3)
{
    keepLatin1Frames(*file.tag(), id3);
}

namespace {

/// Kept: the composer mirrors the whole disc text, and the composer's own frame is not read.
void readDiscAndComposer(const TagLib::ID3v2::Tag& tag, TagsObject& tags)
{
    const OptionalText text = firstFrameText(tag, "TPOS");
    if (!text) return;
    tags.setDiscText(text->section(u'/', 0, 0));
    tags.setComposerText(text);
}

} // namespace

std::shared_ptr<TagsObject> TagLibTagsHelper::tagsForAIFFFile(const QString& path) const
{
    return readTags<TagLib::RIFF::AIFF::File>(path, [](const TagLib::RIFF::AIFF::File& file, TagsObject& tags) {
        const TagLib::ID3v2::Tag& tag = *file.tag();
        readGenericFields(tag, tags);
        readDiscAndComposer(tag, tags);
    });
}

SaveRefusal TagLibTagsHelper::writeTagsForAIFFFileTagObject(const QString& path, const TagsObject& tags) const
{
    const auto file = openFileForTagging<TagLib::RIFF::AIFF::File>(path);
    TagLib::ID3v2::Tag& tag = *file->tag();
    const qint64 oldSize = sizeInFile(tag);
    writeField(genericTitle, tag, tags, false);
    writeField(genericAlbum, tag, tags, false);
    writeField(genericArtist, tag, tags, false);
    if (isWritten(tags.composerText(), false)) addLatin1Frame(tag, "TCOM", *tags.composerText());
    writeField(genericGenre, tag, tags, false);
    writeField(genericYear, tag, tags, false);
    writeField(genericComment, tag, tags, false);
    writeField(genericTrack, tag, tags, false);
    if (isWritten(tags.discText(), false))
        addLatin1Frame(tag, "TPOS", QString::number(static_cast<unsigned int>(intValue(*tags.discText()))));
    return saveWithRoom(oldSize, tag.render().size(), path, [&] { return file->save(); });
}

} // namespace zolt
