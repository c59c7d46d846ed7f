// Monkey's Audio and Wavpack: one design, seven fields that every kind of tag has.
#include "tags/RoomToSave.h"
#include "tags/TagLibFiles.h"

#include <taglib/apefile.h>
#include <taglib/apetag.h>
#include <taglib/wavpackfile.h>

namespace zolt {

namespace {

template <class File> std::shared_ptr<TagsObject> readGenericTags(const QString& path)
{
    return readTags<File>(path, [](const File& file, TagsObject& tags) { readGenericFields(*file.tag(), tags); });
}

template <class File> void writeGenericTags(const QString& path, const TagsObject& tags, bool writeEmptyTags)
{
    const auto file = openFileForTagging<File>(path);
    TagLib::Tag& tag = *file->tag();
    writeField(genericTitle, tag, tags, writeEmptyTags);
    writeField(genericArtist, tag, tags, writeEmptyTags);
    writeField(genericYear, tag, tags, writeEmptyTags);
    writeField(genericAlbum, tag, tags, writeEmptyTags);
    writeField(genericTrack, tag, tags, writeEmptyTags);
    writeField(genericComment, tag, tags, writeEmptyTags);
    writeField(genericGenre, tag, tags, writeEmptyTags);
    const quint64 size = file->APETag(true)->render().size();
    if (hasRoomFor(size, path)) file->save();
}

} // namespace

void TagLibTagsHelper::writeTagsForWavpackFileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                                      bool writeEmptyTags) const
{
    writeGenericTags<TagLib::WavPack::File>(path, tags, writeEmptyTags);
}

std::shared_ptr<TagsObject> TagLibTagsHelper::tagsForWavpackFile(const QString& path) const
{
    return readGenericTags<TagLib::WavPack::File>(path);
}

void TagLibTagsHelper::writeTagsForAPEFileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                                  bool writeEmptyTags) const
{
    writeGenericTags<TagLib::APE::File>(path, tags, writeEmptyTags);
}

std::shared_ptr<TagsObject> TagLibTagsHelper::tagsForAPEFile(const QString& path) const
{
    return readGenericTags<TagLib::APE::File>(path);
}

} // namespace zolt
