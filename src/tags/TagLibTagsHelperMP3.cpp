// MP3: fields that every tag has, and frames of the ID3v2 tag.
#include "tags/Id3Frames.h"
#include "tags/TagLibFiles.h"

#include "platform/images/ImageData.h"

#include <taglib/apetag.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/id3v1tag.h>
#include <taglib/mpegfile.h>

namespace zolt {

template <> bool isOfKind(TagLib::MPEG::File& file, const QString& path)
{
    return holdsMpegSound(file, path) && isReadWhole(Id3Bytes::of(path, id3Place<TagLib::MPEG::File>));
}

template <> void keepEncodings(TagLib::MPEG::File& file, const Id3Bytes& id3)
{
    keepLatin1Frames(*file.ID3v2Tag(false), id3);
}

namespace {

void readDisc(const TagLib::ID3v2::Tag& tag, TagsObject& tags)
{
    const OptionalText text = firstFrameText(tag, "TPOS");
    if (!text) return;
    const qsizetype slash = text->indexOf(u'/');
    tags.setDiscText(slash < 0 ? *text : text->first(slash));
    if (slash >= 0) tags.setDiscTotalText(text->sliced(slash + 1));
}

/// Kept: other than with the disc, a number that stands alone is the total.
void readTrack(const TagLib::ID3v2::Tag& tag, TagsObject& tags)
{
    const OptionalText text = firstFrameText(tag, "TRCK");
    if (!text) return;
    const qsizetype slash = text->indexOf(u'/');
    if (slash >= 0) tags.setTrackText(text->first(slash));
    tags.setTrackTotalText(text->sliced(slash + 1));
}

void readFrames(const TagLib::ID3v2::Tag& tag, const QString& path, TagsObject& tags)
{
    if (OptionalText composer = firstFrameText(tag, "TCOM")) tags.setComposerText(std::move(composer));
    readDisc(tag, tags);
    readTrack(tag, tags);
    if (const auto* picture = firstPicture(tag)) {
        const TagLib::ByteVector bytes = picture->picture();
        readArt(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())), path, tags);
    }
}

/// "number" or "number/total".
QString numberOfTotal(const OptionalText& number, const OptionalText& total)
{
    const QString start = textOrEmpty(number);
    return textOrEmpty(total).isEmpty() ? start : start + u'/' + *total;
}

void writeTrack(TagLib::MPEG::File& file, const TagsObject& tags)
{
    replaceLatin1Frame(*file.ID3v2Tag(false), "TRCK", numberOfTotal(tags.trackText(), tags.trackTotalText()));
    // Saving fills a missing track number from the older tag at the file's end: its number must not outlive ours.
    if (auto* older = file.ID3v1Tag(false))
        older->setTrack(static_cast<unsigned int>(intValue(textOrEmpty(tags.trackText()))));
}

/// Saving evens out the two kinds of tag, and takes a track frame without a number away in doing so, its total
/// included: such a frame is put back.
bool saveWithTrack(TagLib::MPEG::File& file)
{
    TagLib::ID3v2::Tag& tag = *file.ID3v2Tag(false);
    const OptionalText track = firstFrameText(tag, "TRCK");
    if (!file.save()) return false;
    if (!track || firstFrameText(tag, "TRCK") == track) return true;
    replaceLatin1Frame(tag, "TRCK", *track);
    return file.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripNone, TagLib::ID3v2::v4,
                     TagLib::File::DoNotDuplicate);
}

void writeArt(TagLib::ID3v2::Tag& tag, const TagsObject& tags, bool writeEmptyTags)
{
    if (tags.albumArt()) {
        addPngFrame(tag, getBitmapDataForImage(tags.albumArt(), ImageFileType::PNG));
    } else if (writeEmptyTags) {
        if (auto* picture = firstPicture(tag)) tag.removeFrame(picture);
    }
}

void writeFields(TagLib::MPEG::File& file, const TagsObject& tags, bool writeEmptyTags)
{
    TagLib::Tag& generic = *file.tag();
    TagLib::ID3v2::Tag& frames = *file.ID3v2Tag(false);
    const auto writes = [&](const OptionalText& text) { return isWritten(text, writeEmptyTags); };
    writeField(genericTitle, generic, tags, writeEmptyTags);
    writeField(genericAlbum, generic, tags, writeEmptyTags);
    writeField(genericArtist, generic, tags, writeEmptyTags);
    if (writes(tags.artistText())) replaceLatin1Frame(frames, "TPE2", textOrEmpty(tags.artistText()));
    if (writes(tags.composerText())) replaceLatin1Frame(frames, "TCOM", textOrEmpty(tags.composerText()));
    writeField(genericGenre, generic, tags, writeEmptyTags);
    writeField(genericYear, generic, tags, writeEmptyTags);
    writeField(genericComment, generic, tags, writeEmptyTags);
    if (writes(tags.trackText())) writeTrack(file, tags);
    if (writes(tags.discText()))
        replaceLatin1Frame(frames, "TPOS", numberOfTotal(tags.discText(), tags.discTotalText()));
}

/// The tag behind the sound, if there is one. The oldest kind of tag has a size that counts for nothing.
qint64 sizeBehind(TagLib::MPEG::File& file)
{
    TagLib::APE::Tag* behind = file.APETag(false);
    return behind ? behind->render().size() : 0;
}

} // namespace

std::shared_ptr<TagsObject> TagLibTagsHelper::tagsForMP3File(const QString& path) const
{
    return readTags<TagLib::MPEG::File>(path, [&](TagLib::MPEG::File& file, TagsObject& tags) {
        for (const GenericText* field : {&genericTitle, &genericArtist, &genericAlbum, &genericComment, &genericGenre})
            readField(*field, *file.tag(), tags);
        readFrames(*file.ID3v2Tag(false), path, tags);
    });
}

SaveRefusal TagLibTagsHelper::writeTagsForMP3FileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                                         bool writeEmptyTags) const
{
    const auto file = openFileForTagging<TagLib::MPEG::File>(path);
    const qint64 oldSize = sizeInFile(*file->ID3v2Tag(false)) + sizeBehind(*file);
    writeFields(*file, tags, writeEmptyTags);
    writeArt(*file->ID3v2Tag(false), tags, writeEmptyTags);
    const qint64 newSize = file->ID3v2Tag(false)->render().size() + sizeBehind(*file);
    return saveWithRoom(oldSize, newSize, path, [&] { return saveWithTrack(*file); });
}

} // namespace zolt
