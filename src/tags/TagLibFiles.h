// How the readers and writers of this folder meet the tag library: opening files, texts, the fields it knows of any
// tag.
#pragma once

#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "tags/FileKind.h"
#include "tags/Id3Guard.h"
#include "tags/TagLibTagsHelper.h"

#include "platform/errors/Exceptions.h"

#include <QFile>

#include <taglib/audioproperties.h>
#include <taglib/tag.h>
#include <taglib/tstring.h>

namespace TagLib::MPEG {
class File;
}
namespace TagLib::RIFF::AIFF {
class File;
}

namespace zolt {

/// Makes the library's new text frames UTF-8. Once for the program, before any file is open, so that no thread sees
/// the library's one frame factory change.
void useUtf8Frames();

/// Writes a fault that a broken file caused to the log.
void logUnreadable(const QString& path, const char* reason);

/// The text of a string of the library.
QString textOf(const TagLib::String& string);

/// The text without U+0000, which no tag can hold: what stands behind one would be lost, or be a value of its own.
QString withoutZeros(QString text);

/// True if a writer touches the field: it has text, or empty fields are written too.
inline bool isWritten(const OptionalText& text, bool writeEmptyTags)
{
    return writeEmptyTags || (text && !withoutZeros(*text).isEmpty());
}

/// A text that every kind of tag has, in the record and in the library.
struct GenericText
{
    const OptionalText& (TagsObject::*text)() const;
    void (TagsObject::*setText)(OptionalText);
    TagLib::String (TagLib::Tag::*value)() const;
    void (TagLib::Tag::*setValue)(const TagLib::String&);
};

/// The same for a number, which is a text in the record.
struct GenericNumber
{
    const OptionalText& (TagsObject::*text)() const;
    void (TagsObject::*setText)(OptionalText);
    unsigned int (TagLib::Tag::*value)() const;
    void (TagLib::Tag::*setValue)(unsigned int);
};

extern const GenericText genericTitle;
extern const GenericText genericArtist;
extern const GenericText genericAlbum;
extern const GenericText genericComment;
extern const GenericText genericGenre;
extern const GenericNumber genericYear;
extern const GenericNumber genericTrack;

/// Copies the field from the file to the record.
void readField(const GenericText& field, const TagLib::Tag& tag, TagsObject& tags);
/// As for texts; the number 0 leaves the record's field as it is.
void readField(const GenericNumber& field, const TagLib::Tag& tag, TagsObject& tags);

/// Copies title, artist, year, album, track, comment and genre: all that every kind of tag has.
void readGenericFields(const TagLib::Tag& tag, TagsObject& tags);

/// Copies the field from the record to the file if isWritten says so; an absent text as the empty one.
void writeField(const GenericText& field, TagLib::Tag& tag, const TagsObject& tags, bool writeEmptyTags);
/// As for texts; a number is what the text starts with, else 0.
void writeField(const GenericNumber& field, TagLib::Tag& tag, const TagsObject& tags, bool writeEmptyTags);

/// Where the library looks for an ID3v2 tag in files of that class.
template <class File>
constexpr Id3Place id3Place = std::is_same_v<File, TagLib::MPEG::File> ? Id3Place::BeforeSound : Id3Place::Start;

/// The library takes frames for UTF-8 once it has read them: gives those that were Latin-1 in the file their encoding
/// back. For classes with such frames.
template <class File> void keepEncodings(File& file, const Id3Bytes& id3)
{
    Q_UNUSED(file);
    Q_UNUSED(id3);
}
template <> void keepEncodings(TagLib::MPEG::File& file, const Id3Bytes& id3);
template <> void keepEncodings(TagLib::RIFF::AIFF::File& file, const Id3Bytes& id3);

/// The file opened without looking at its audio; no object if it does not open, or if it is so broken that the library
/// throws (a string or a block too large, say).
template <class File> std::unique_ptr<File> openFile(const QString& path)
try {
    useUtf8Frames();
    // The library reads folders and pipes too, and never comes back from some of them.
    if (!isRegularFile(path)) return nullptr;
    const Id3Bytes id3 = Id3Bytes::of(path, id3Place<File>);
    if (!hasHarmlessFrames(id3)) return nullptr;
    auto file = std::make_unique<File>(bytesOfName(path).constData(), false, TagLib::AudioProperties::Average);
    if (!file->isValid()) return nullptr;
    keepEncodings(*file, id3);
    return file;
} catch (const std::exception& fault) {
    logUnreadable(path, fault.what());
    return nullptr;
}

/// True if the file is of the kind that the library's class is for, and saving it loses nothing. The library takes any
/// file for what it is told, and writes into it.
template <class File> bool isOfKind(File& file, const QString& path);

/// As openFile. @throws AssertionException if the file does not open, or is of another kind
template <class File> std::unique_ptr<File> openFileForTagging(const QString& path)
{
    auto file = openFile<File>(path);
    if (!file || !isOfKind(*file, path))
        throw AssertionException(QStringLiteral("Unable to open the output file for tagging."));
    return file;
}

/// Takes the picture into the record. Bytes that no picture can be made of are told in the log and in the record.
void readArt(const QByteArray& bytes, const QString& path, TagsObject& tags);

/// A blank record, filled by `fill(file, record)` if the file opens; blank too if the library throws on the way.
template <class File, class Fill> std::shared_ptr<TagsObject> readTags(const QString& path, const Fill& fill)
{
    const auto blank = [] {
        auto tags = std::make_shared<TagsObject>();
        TagLibTagsHelper().setBlankTags(*tags);
        return tags;
    };
    try {
        auto tags = blank();
        if (const auto file = openFile<File>(path)) fill(*file, *tags);
        return tags;
    } catch (const std::exception& fault) {
        logUnreadable(path, fault.what());
        return blank();
    }
}

} // namespace zolt
