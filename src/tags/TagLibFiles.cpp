#include "tags/TagLibFiles.h"

#include "tags/Log.h"

#include <taglib/id3v2framefactory.h>

namespace zolt {

const GenericText genericTitle{&TagsObject::titleText, &TagsObject::setTitleText, &TagLib::Tag::title,
                               &TagLib::Tag::setTitle};
const GenericText genericArtist{&TagsObject::artistText, &TagsObject::setArtistText, &TagLib::Tag::artist,
                                &TagLib::Tag::setArtist};
const GenericText genericAlbum{&TagsObject::albumText, &TagsObject::setAlbumText, &TagLib::Tag::album,
                               &TagLib::Tag::setAlbum};
const GenericText genericComment{&TagsObject::commentText, &TagsObject::setCommentText, &TagLib::Tag::comment,
                                 &TagLib::Tag::setComment};
const GenericText genericGenre{&TagsObject::genreText, &TagsObject::setGenreText, &TagLib::Tag::genre,
                               &TagLib::Tag::setGenre};
const GenericNumber genericYear{&TagsObject::dateText, &TagsObject::setDateText, &TagLib::Tag::year,
                                &TagLib::Tag::setYear};
const GenericNumber genericTrack{&TagsObject::trackText, &TagsObject::setTrackText, &TagLib::Tag::track,
                                 &TagLib::Tag::setTrack};

QString withoutZeros(QString text)
{
    return text.remove(QChar(u'\0'));
}

void useUtf8Frames()
{
    static std::once_flag done;
    std::call_once(done, [] { TagLib::ID3v2::FrameFactory::instance()->setDefaultTextEncoding(TagLib::String::UTF8); });
}

void logUnreadable(const QString& path, const char* reason)
{
    qCWarning(tagsLog).noquote() << "Unable to read the tags of" << path << reason;
}

void readArt(const QByteArray& bytes, const QString& path, TagsObject& tags)
{
    tags.setAlbumArt(Image::fromData(bytes));
    tags.setArtIsUnreadable(!tags.albumArt());
    if (!tags.albumArt())
        qCWarning(tagsLog).noquote() << "The picture of" << bytes.size() << "bytes cannot be decoded:" << path;
}

QString textOf(const TagLib::String& string)
{
    return QString::fromStdString(string.to8Bit(true));
}

void readField(const GenericText& field, const TagLib::Tag& tag, TagsObject& tags)
{
    (tags.*field.setText)(textOf((tag.*field.value)()));
}

void readField(const GenericNumber& field, const TagLib::Tag& tag, TagsObject& tags)
{
    const int number = static_cast<int>((tag.*field.value)());
    if (number != 0) (tags.*field.setText)(QString::number(number));
}

void readGenericFields(const TagLib::Tag& tag, TagsObject& tags)
{
    readField(genericTitle, tag, tags);
    readField(genericArtist, tag, tags);
    readField(genericYear, tag, tags);
    readField(genericAlbum, tag, tags);
    readField(genericTrack, tag, tags);
    readField(genericComment, tag, tags);
    readField(genericGenre, tag, tags);
}

void writeField(const GenericText& field, TagLib::Tag& tag, const TagsObject& tags, bool writeEmptyTags)
{
    const OptionalText& text = (tags.*field.text)();
    if (!isWritten(text, writeEmptyTags)) return;
    (tag.*field.setValue)(TagLibTagsHelper().tagLibString(textOrEmpty(text)));
}

void writeField(const GenericNumber& field, TagLib::Tag& tag, const TagsObject& tags, bool writeEmptyTags)
{
    const OptionalText& text = (tags.*field.text)();
    if (!isWritten(text, writeEmptyTags)) return;
    (tag.*field.setValue)(static_cast<unsigned int>(intValue(textOrEmpty(text))));
}

} // namespace zolt
