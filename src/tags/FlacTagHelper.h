// FLAC tags and stream facts through the metaflac tool, one run for each field.
#pragma once

#include "tags/TagsObject.h"

#include "encode/AudioFormatObject.h"

#include <memory>

namespace zolt {

/// Knows nine fields: no totals, no picture, no custom tags. Holds no state: make one for each call, on any thread;
/// each run of the tool blocks. What the tool answers is not looked at: one that fails gives empty texts and zeros,
/// and writes nothing. All operations @throw PlatformException if the tool cannot be started at all.
class FlacTagHelper
{
public:
    /// Sample rate, channels, bits and length of a FLAC file.
    std::shared_ptr<AudioFormatObject> getFormatInfo(const QString& path) const;

    /// Removes all values of a key.
    void removeTagForFileTagKey(const QString& path, const QString& key) const;

    /// Replaces all values of a key by one. An empty or absent value is written as an empty tag with
    /// `writeEmptyTags`, and not at all without.
    void writeTagForFileTagKeyTagValueWriteEmptyTags(const QString& path, const QString& key, const OptionalText& value,
                                                     bool writeEmptyTags) const;

    /// Writes the nine fields.
    void writeTagsForFileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                 bool writeEmptyTags) const;

    /// What follows the last equals sign of the tool's answer, so that a value that holds one is cut and only the
    /// last of several values counts. Empty for a key that the file lacks; absent if the answer is not UTF-8.
    OptionalText tagForFileTagKey(const QString& path, const QString& key) const;

    /// The nine fields; the others stay absent. Never nothing.
    std::shared_ptr<TagsObject> tagsForFile(const QString& path) const;
};

} // namespace zolt
