// Monkey's Audio and Wavpack: one design, seven fields that every kind of tag has.
#include "tags/TagLibFiles.h"

#include <taglib/apefile.h>
#include <taglib/apefooter.h>
#include <taglib/apetag.h>
#include <taglib/wavpackfile.h>

namespace zolt {

template <> bool isOfKind(TagLib::APE::File&, const QString& path)
{
    return startsWithLetters(path, "MAC ");
}

template <> bool isOfKind(TagLib::WavPack::File&, const QString& path)
{
    return startsWithLetters(path, "wvpk");
}

namespace {

template <class File> std::shared_ptr<TagsObject> readGenericTags(const QString& path)
{
    return readTags<File>(path, [](const File& file, TagsObject& tags) { readGenericFields(*file.tag(), tags); });
}

template <class File> SaveRefusal writeGenericTags(const QString& path, const TagsObject& tags, bool writeEmptyTags)
{
    const auto file = openFileForTagging<File>(path);
    // Made first: a file with nothing but the oldest kind of tag would keep thirty letters of each field, and lose them
    // to the empty tag that is made when it is saved.
    TagLib::APE::Tag& stored = *file->APETag(true);
    const qint64 oldSize = stored.footer()->completeTagSize();
    TagLib::Tag& tag = *file->tag();
    writeField(genericTitle, tag, tags, writeEmptyTags);
    writeField(genericArtist, tag, tags, writeEmptyTags);
    writeField(genericYear, tag, tags, writeEmptyTags);
    writeField(genericAlbum, tag, tags, writeEmptyTags);
    writeField(genericTrack, tag, tags, writeEmptyTags);
    writeField(genericComment, tag, tags, writeEmptyTags);
    writeField(genericGenre, tag, tags, writeEmptyTags);
    return saveWithRoom(oldSize, stored.render().size(), path, [&] { return file->save(); });
}

} // namespace

SaveRefusal TagLibTagsHelper::writeTagsForWavpackFileTagObjectWriteEmptyTags(const QString& path,
                                                                             const TagsObject& tags,
                                                                             bool writeEmptyTags) const
{
    return writeGenericTags<TagLib::WavPack::File>(path, tags, writeEmptyTags);
}

std::shared_ptr<TagsObject> TagLibTagsHelper::tagsForWavpackFile(const QString& path) const
{
    return readGenericTags<TagLib::WavPack::File>(path);
}

SaveRefusal TagLibTagsHelper::writeTagsForAPEFileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                                         bool writeEmptyTags) const
{
    return writeGenericTags<TagLib::APE::File>(path, tags, writeEmptyTags);
}

std::shared_ptr<TagsObject> TagLibTagsHelper::tagsForAPEFile(const QString& path) const
{
    return readGenericTags<TagLib::APE::File>(path);
}

} // namespace zolt
