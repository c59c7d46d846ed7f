// Covers in formats that other programs put into files.
#include "support/LogCapture.h"
#include "tags/TagFormats.h"

#include <QImage>
#include <QImageWriter>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

struct PictureFormat
{
    const char* name;
    std::shared_ptr<TagsObject> (TagLibTagsHelper::*read)(const QString&) const;
    QString (TagFiles::*sample)();
};

void PrintTo(const PictureFormat& format, std::ostream* out)
{
    *out << format.name;
}

class TagPictures : public testing::TestWithParam<PictureFormat>
{
protected:
    std::shared_ptr<TagsObject> readWith(const QString& picture, const QString& mime)
    {
        const QString path = (files.*GetParam().sample)();
        addArtElsewhere(path, picture, mime);
        return (TagLibTagsHelper().*GetParam().read)(path);
    }

    TagFiles files;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Formats, TagPictures,
                         testing::Values(PictureFormat{"FLAC", &TagLibTagsHelper::tagsForFlacFile, &TagFiles::flac},
                                         PictureFormat{"MP3", &TagLibTagsHelper::tagsForMP3File, &TagFiles::mp3}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(TagPictures, WebPIsRead)
{
    const auto tags = readWith(files.picture("webp", 44), u"image/webp"_s);
    ASSERT_TRUE(tags->albumArt());
    EXPECT_EQ(tags->albumArt()->lastBitmap()->pixelsWide(), 44);
    EXPECT_FALSE(tags->artIsUnreadable());
}

TEST_P(TagPictures, TiffIsRead)
{
    const auto tags = readWith(files.picture("tiff", 45), u"image/tiff"_s);
    ASSERT_TRUE(tags->albumArt());
    EXPECT_EQ(tags->albumArt()->lastBitmap()->pixelsWide(), 45);
}

TEST_P(TagPictures, OneThatCannotBeDecodedIsNamedInTheLog)
{
    const QString picture = files.pathOf(u"cover.jxl"_s);
    writeContent(picture, "\xff\x0a and so on");
    const LogCapture log;
    const auto tags = readWith(picture, u"image/jxl"_s);
    EXPECT_FALSE(tags->albumArt());
    EXPECT_TRUE(tags->artIsUnreadable());
    EXPECT_EQ(log.count(u"The picture of 12 bytes cannot be decoded: "_s + (files.*GetParam().sample)()), 1);
}
