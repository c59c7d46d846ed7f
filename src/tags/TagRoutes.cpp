#include "tags/TagRoutes.h"

#include "shell/Constants.h"
#include "tags/AACTagsHelper.h"
#include "tags/TagLibTagsHelper.h"

namespace zolt {

namespace {

using Library = TagLibTagsHelper;

template <auto read> std::shared_ptr<TagsObject> readWith(const QString& path)
{
    return (Library().*read)(path);
}

template <auto write> SaveRefusal writeWith(const QString& path, const TagsObject& tags, bool writeEmptyTags)
{
    return (Library().*write)(path, tags, writeEmptyTags);
}

std::shared_ptr<TagsObject> readM4a(const QString& path)
{
    return AACTagsHelper().tagsForFile(path);
}

SaveRefusal writeM4a(const QString& path, const TagsObject& tags, bool writeEmptyTags)
{
    AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(path, tags, writeEmptyTags, false);
    return std::nullopt;
}

} // namespace

const TagRoute* tagRouteFor(const QString& path)
{
    static const TagRoute routes[] = {
        {Constants::FLAC, readWith<&Library::tagsForFlacFile>,
         writeWith<&Library::writeTagsForFLACFileTagObjectWriteEmptyTags>},
        {Constants::MP3, readWith<&Library::tagsForMP3File>,
         writeWith<&Library::writeTagsForMP3FileTagObjectWriteEmptyTags>},
        {Constants::APE, readWith<&Library::tagsForAPEFile>,
         writeWith<&Library::writeTagsForAPEFileTagObjectWriteEmptyTags>},
        {Constants::WV, readWith<&Library::tagsForWavpackFile>,
         writeWith<&Library::writeTagsForWavpackFileTagObjectWriteEmptyTags>},
        {Constants::M4A, readM4a, writeM4a},
    };
    const QString extension = path::extension(path).toUpper();
    const auto found = std::find_if(std::begin(routes), std::end(routes),
                                    [&](const TagRoute& route) { return route.extension == extension; });
    return found == std::end(routes) ? nullptr : found;
}

} // namespace zolt
