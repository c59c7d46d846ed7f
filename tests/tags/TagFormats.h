// The kinds of file that the tag library writes, with a sample and the pair of operations of each, for tests that hold
// for all of them.
#pragma once

#include "tags/TagFiles.h"
#include "tags/TagLibTagsHelper.h"

namespace zolt::test {

struct TagFormat
{
    const char* name;
    QString (TagFiles::*sample)();
    std::shared_ptr<TagsObject> (*read)(const QString&);
    /// Kinds without the choice of empty fields pass it over.
    SaveRefusal (*write)(const QString&, const TagsObject&, bool writeEmptyTags);
};

void PrintTo(const TagFormat& tested, std::ostream* out);

/// FLAC, MP3, AIFF, APE and Wavpack.
const std::vector<TagFormat>& tagFormats();
/// APE and Wavpack, which are one design.
const std::vector<TagFormat>& genericFormats();

/// A record with every field set, in several scripts; numbers with totals and a date with a day.
TagsObject fullRecord();

/// One test for each format, on a sample of its own.
class TagFormatTest : public testing::TestWithParam<TagFormat>
{
protected:
    QString path() { return (files.*GetParam().sample)(); }
    std::shared_ptr<TagsObject> read() { return read(path()); }
    std::shared_ptr<TagsObject> read(const QString& file) { return GetParam().read(file); }
    SaveRefusal write(const TagsObject& tags, bool writeEmptyTags = false)
    {
        return GetParam().write(path(), tags, writeEmptyTags);
    }

    TagFiles files;
};

inline std::string nameOfFormat(const testing::TestParamInfo<TagFormat>& tested)
{
    return tested.param.name;
}

} // namespace zolt::test
