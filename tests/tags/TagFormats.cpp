#include "tags/TagFormats.h"

#include <QImage>

using namespace Qt::StringLiterals;

namespace zolt::test {

namespace {

using Helper = TagLibTagsHelper;

template <auto read> std::shared_ptr<TagsObject> readWith(const QString& path)
{
    return (Helper().*read)(path);
}

template <auto write> SaveRefusal writeWith(const QString& path, const TagsObject& tags, bool writeEmptyTags)
{
    return (Helper().*write)(path, tags, writeEmptyTags);
}

SaveRefusal writeAiff(const QString& path, const TagsObject& tags, bool)
{
    return Helper().writeTagsForAIFFFileTagObject(path, tags);
}

} // namespace

void PrintTo(const TagFormat& tested, std::ostream* out)
{
    *out << tested.name;
}

const std::vector<TagFormat>& genericFormats()
{
    static const std::vector<TagFormat> formats = {
        {"APE", &TagFiles::ape, readWith<&Helper::tagsForAPEFile>,
         writeWith<&Helper::writeTagsForAPEFileTagObjectWriteEmptyTags>},
        {"Wavpack", &TagFiles::wavpack, readWith<&Helper::tagsForWavpackFile>,
         writeWith<&Helper::writeTagsForWavpackFileTagObjectWriteEmptyTags>},
    };
    return formats;
}

const std::vector<TagFormat>& tagFormats()
{
    static const std::vector<TagFormat> formats = [] {
        std::vector<TagFormat> all = {
            {"FLAC", &TagFiles::flac, readWith<&Helper::tagsForFlacFile>,
             writeWith<&Helper::writeTagsForFLACFileTagObjectWriteEmptyTags>},
            {"MP3", &TagFiles::mp3, readWith<&Helper::tagsForMP3File>,
             writeWith<&Helper::writeTagsForMP3FileTagObjectWriteEmptyTags>},
            {"AIFF", &TagFiles::aiff, readWith<&Helper::tagsForAIFFFile>, writeAiff},
        };
        all.insert(all.end(), genericFormats().begin(), genericFormats().end());
        return all;
    }();
    return formats;
}

TagsObject fullRecord()
{
    TagsObject tags;
    tags.setTitleText(u"Название"_s);
    tags.setArtistText(u"Künstler"_s);
    tags.setAlbumText(u"アルバム"_s);
    tags.setCommentText(u"הערה"_s);
    tags.setGenreText(u"Жанр"_s);
    tags.setComposerText(u"Compositeur é"_s);
    tags.setDateText(u"1999-05-01"_s);
    tags.setTrackText(u"3/12"_s);
    tags.setDiscText(u"2/5"_s);
    tags.setTrackTotalText(u"12"_s);
    tags.setDiscTotalText(u"5"_s);
    tags.setAlbumArt(Image::fromPixels(QImage(2, 2, QImage::Format_RGB32)));
    tags.setCustomTagsDictionary({{u"MOOD"_s, u"calm"_s}});
    return tags;
}

} // namespace zolt::test
