// FLAC: the vorbis comment and the picture blocks.
#include "tags/FlacBlocks.h"
#include "tags/TagLibFiles.h"

#include "platform/Product.h"
#include "platform/images/ImageData.h"
#include "tags/Log.h"

#include <QSet>

#include <taglib/flacfile.h>
#include <taglib/flacpicture.h>
#include <taglib/xiphcomment.h>

using namespace Qt::StringLiterals;

namespace zolt {

template <> bool isOfKind(TagLib::FLAC::File&, const QString& path)
{
    return startsWithLetters(path, "fLaC");
}

namespace {

struct VorbisField
{
    const char* key;
    const OptionalText& (TagsObject::*text)() const;
    void (TagsObject::*setText)(OptionalText);
};

/// In the order of reading, so that a comment stands over a description.
constexpr VorbisField vorbisFields[] = {
    {"TITLE", &TagsObject::titleText, &TagsObject::setTitleText},
    {"ARTIST", &TagsObject::artistText, &TagsObject::setArtistText},
    {"DATE", &TagsObject::dateText, &TagsObject::setDateText},
    {"ALBUM", &TagsObject::albumText, &TagsObject::setAlbumText},
    {"DISCNUMBER", &TagsObject::discText, &TagsObject::setDiscText},
    {"DISCTOTAL", &TagsObject::discTotalText, &TagsObject::setDiscTotalText},
    {"TRACKNUMBER", &TagsObject::trackText, &TagsObject::setTrackText},
    {"TRACKTOTAL", &TagsObject::trackTotalText, &TagsObject::setTrackTotalText},
    {"DESCRIPTION", &TagsObject::commentText, &TagsObject::setCommentText},
    {"COMMENT", &TagsObject::commentText, &TagsObject::setCommentText},
    {"GENRE", &TagsObject::genreText, &TagsObject::setGenreText},
    {"COMPOSER", &TagsObject::composerText, &TagsObject::setComposerText},
};

/// Keys that are no custom tags. The two totals are left out on purpose: they show as fields and as custom tags.
bool isKnownKey(const QString& key)
{
    static const QSet<QString> keys = {u"TITLE"_s,      u"ARTIST"_s,      u"DATE"_s,        u"ALBUM"_s,
                                       u"DISCNUMBER"_s, u"TRACKNUMBER"_s, u"DESCRIPTION"_s, u"COMMENT"_s,
                                       u"GENRE"_s,      u"COMPOSER"_s,    u"ENCODER"_s};
    return keys.contains(key);
}

void readFields(const TagLib::Ogg::FieldListMap& fields, TagsObject& tags)
{
    for (const VorbisField& field : vorbisFields) {
        const auto found = fields.find(field.key);
        if (found != fields.end()) (tags.*field.setText)(textOf(found->second.toString(" ")));
    }
}

void readCustomTags(const TagLib::Ogg::FieldListMap& fields, TagsObject& tags)
{
    CustomTags custom;
    for (const auto& [key, values] : fields) {
        const QString upperKey = textOf(key.upper());
        if (!isKnownKey(upperKey)) custom.insert(upperKey, textOf(values.toString(" ")));
    }
    if (!custom.isEmpty()) tags.setCustomTagsDictionary(custom);
}

void readPicture(TagLib::FLAC::File& file, const QString& path, TagsObject& tags)
{
    const auto pictures = file.pictureList();
    if (pictures.isEmpty()) return;
    const TagLib::ByteVector bytes = pictures.front()->data();
    readArt(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())), path, tags);
}

void removeFields(TagLib::Ogg::XiphComment& comment)
{
    const TagLib::Ogg::FieldListMap fields = comment.fieldListMap();
    for (const auto& [key, values] : fields)
        comment.removeFields(key.upper());
}

void removePictures(TagLib::FLAC::File& file)
{
    // Pictures that other programs put into the comment itself are no fields to the library.
    file.xiphComment(true)->removeAllPictures();
    file.removePictures();
}

void writeFields(TagLib::Ogg::XiphComment& comment, const TagsObject& tags)
{
    const auto write = [&](const char* key, const OptionalText& text) {
        if (isWritten(text, false)) comment.addField(key, TagLibTagsHelper().tagLibString(*text), true);
    };
    for (const VorbisField& field : vorbisFields)
        write(field.key, (tags.*field.text)());
}

/// The picture as a block; nothing for no picture and for one without a bitmap.
std::unique_ptr<TagLib::FLAC::Picture> pictureOf(const std::shared_ptr<const Image>& art)
{
    const ImageRepresentation* bitmap = art ? art->lastBitmap() : nullptr;
    if (!bitmap) return nullptr;
    const QByteArray png = getBitmapDataForImage(art, ImageFileType::PNG);
    auto picture = std::make_unique<TagLib::FLAC::Picture>();
    picture->setData(TagLib::ByteVector(png.constData(), static_cast<unsigned int>(png.size())));
    picture->setMimeType("image/png");
    picture->setWidth(bitmap->pixelsWide());
    picture->setHeight(bitmap->pixelsHigh());
    picture->setColorDepth(bitmap->bitsPerPixel());
    return picture;
}

/// False for bytes that no block of the format can hold. The library writes them all the same, with a length that
/// leads every reader astray, and the sound behind them is lost.
bool fitsIntoBlock(const TagLib::ByteVector& bytes, const QString& path)
{
    constexpr unsigned int largestBlock = 0xff'ffff;
    if (bytes.size() <= largestBlock) return true;
    qCWarning(tagsLog).noquote() << "Too large for a FLAC file:" << bytes.size() << "bytes for" << path;
    return false;
}

/// @return false for a picture that does not fit
bool writePictures(TagLib::FLAC::File& file, const QString& path, const TagsObject& tags, bool writeEmptyTags)
{
    auto picture = pictureOf(tags.albumArt());
    // As PNG a photograph grows tenfold: one that does not fit must not cost the file the one that it has.
    if (picture && !fitsIntoBlock(picture->render(), path)) return false;
    if (writeEmptyTags) removePictures(file);
    if (picture) file.addPicture(picture.release()); // the file owns it from here on
    return true;
}

/// The comment, all pictures and the least padding, as long as they are when they are written: where no padding would
/// be left the library makes room for more.
qint64 sizeOfTags(TagLib::FLAC::File& file)
{
    constexpr qint64 header = 4;
    qint64 size = 2 * header + 1 + file.xiphComment(true)->render().size();
    const auto pictures = file.pictureList();
    for (const TagLib::FLAC::Picture* picture : pictures)
        size += header + picture->render().size();
    return size;
}

void writeCustomTags(TagLib::Ogg::XiphComment& comment, const CustomTags& custom)
{
    for (const auto& [key, value] : custom.asKeyValueRange()) {
        if (value.isEmpty()) continue;
        qCInfo(tagsLog).noquote() << "setting custom tag:" << key << value;
        const TagLib::String name = TagLibTagsHelper().tagLibString(key);
        if (TagLib::Ogg::XiphComment::checkKey(name))
            comment.addField(name, TagLibTagsHelper().tagLibString(value), true);
        else
            qCWarning(tagsLog).noquote() << "Error setting custom tag:" << key;
    }
}

} // namespace

SaveRefusal TagLibTagsHelper::writeTagsForFLACFileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                                          bool writeEmptyTags) const
{
    const auto file = openFileForTagging<TagLib::FLAC::File>(path);
    TagLib::Ogg::XiphComment& comment = *file->xiphComment(true);
    if (writeEmptyTags) removeFields(comment);
    writeFields(comment, tags);
    const bool hasPicture = writePictures(*file, path, tags, writeEmptyTags);
    comment.addField("ENCODER", tagLibString(u"Zolt "_s + QLatin1StringView(product::version)), true);
    // Last, so that a custom total stands over the field.
    writeCustomTags(comment, tags.customTagsDictionary());
    if (!fitsIntoBlock(comment.render(), path)) return u"The tags were not saved: no FLAC file can hold so much."_s;
    const SaveRefusal refusal =
        saveWithRoom(sizeOfFlacTags(path), sizeOfTags(*file), path, [&] { return file->save(); });
    if (refusal || hasPicture) return refusal;
    return u"The cover was not saved, but all else was: no FLAC file can hold so large a picture."_s;
}

std::shared_ptr<TagsObject> TagLibTagsHelper::tagsForFlacFile(const QString& path) const
{
    return readTags<TagLib::FLAC::File>(path, [&](TagLib::FLAC::File& file, TagsObject& tags) {
        if (!file.hasXiphComment()) return;
        const TagLib::Ogg::FieldListMap& fields = file.xiphComment(false)->fieldListMap();
        readFields(fields, tags);
        readPicture(file, path, tags);
        readCustomTags(fields, tags);
    });
}

} // namespace zolt
