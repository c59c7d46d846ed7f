// Tags of M4A files (AAC and Apple Lossless).
#pragma once

#include "tags/TagsObject.h"

#include <memory>

namespace zolt {

/// Reads and writes tags in process. Holds no state: make one for each call, on any thread; every call blocks.
class AACTagsHelper
{
public:
    /// Marks the file as gapless with AtomicParsley; the tool's output is not looked at.
    /// @throws PlatformException if the tool cannot be started
    void makeGapless(const QString& path) const;

    /// Empties the nine text fields that an M4A file is read for.
    /// The totals and the picture stay as they are.
    void setBlankTags(TagsObject& tags) const;

    /// Disc, track and their totals always read as a number, "0" where the file has none. The first picture is taken;
    /// one that cannot be decoded is passed over.
    /// @throws AssertionException "Unable to open the file for reading."
    std::shared_ptr<TagsObject> tagsForFile(const QString& path) const;

    /// Writes the fields and leaves the file in optimised form. A field that is empty or absent is left as the file
    /// has it, or with `writeEmptyTags` is emptied; a picture takes the place of the file's first one, and no picture
    /// removes nothing.
    /// @param encoding  the file has just been encoded: the tool string is written
    /// @throws AssertionException "Unable to open the output file for tagging."
    /// @throws PlatformException of name "Exception" if the file was tagged but could not be optimised
    void writeTagsForFileTagObjectWriteEmptyTagsEncoding(const QString& path, const TagsObject& tags,
                                                         bool writeEmptyTags, bool encoding) const;
};

} // namespace zolt
