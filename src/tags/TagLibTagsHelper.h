// Tags through the tag library: FLAC, MP3, AIFF, Monkey's Audio and Wavpack.
#pragma once

#include "tags/RoomToSave.h"
#include "tags/TagsObject.h"

#include <memory>

namespace TagLib {
class String;
}

namespace zolt {

/// Reads and writes tags in process. Holds no state: make one for each call, on any thread; every call blocks.
///
/// Readers never fail: a file that is missing, broken or of another kind gives the blank record.
/// Writers @throw AssertionException ("Unable to open the output file for tagging.") for a file that does not open or
/// is not of the kind that it is written as, and tell why they did not save, if they did not. With `writeEmptyTags`
/// false a field that is absent or empty is left as the file has it; with true it is emptied.
class TagLibTagsHelper
{
public:
    /// Seven fields: title, artist, year, album, track, comment, genre. Date and track are written as whole numbers.
    SaveRefusal writeTagsForWavpackFileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                               bool writeEmptyTags) const;
    std::shared_ptr<TagsObject> tagsForWavpackFile(const QString& path) const;

    /// As for Wavpack.
    SaveRefusal writeTagsForAPEFileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                           bool writeEmptyTags) const;
    std::shared_ptr<TagsObject> tagsForAPEFile(const QString& path) const;

    /// All fields, the custom tags and one picture. The picture is added to those that the file has; with
    /// `writeEmptyTags` everything that the record does not hold is removed from the file first.
    SaveRefusal writeTagsForFLACFileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                            bool writeEmptyTags) const;
    /// All fields, the first picture, and every key without a field as a custom tag in upper case. Several values
    /// of a key are joined with one blank.
    std::shared_ptr<TagsObject> tagsForFlacFile(const QString& path) const;

    /// The text as the tag library's string.
    TagLib::String tagLibString(const QString& text) const;

    /// Sets the eleven text fields to the empty text and removes the picture; custom tags stay.
    void setBlankTags(TagsObject& tags) const;

    /// The disc number comes without its total, and the composer is the whole disc text.
    std::shared_ptr<TagsObject> tagsForAIFFFile(const QString& path) const;
    /// Fields that are absent or empty are always left as the file has them. Composer and disc frames are added to
    /// those that the file has.
    SaveRefusal writeTagsForAIFFFileTagObject(const QString& path, const TagsObject& tags) const;

    /// No date is read. A track frame without a slash is the total.
    std::shared_ptr<TagsObject> tagsForMP3File(const QString& path) const;
    /// The artist goes to the album artist too. The picture is added to those that the file has; with
    /// `writeEmptyTags` and no picture in the record the file's first one is removed.
    SaveRefusal writeTagsForMP3FileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                           bool writeEmptyTags) const;
};

} // namespace zolt
