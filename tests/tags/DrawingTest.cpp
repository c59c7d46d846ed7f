// Covers that are drawings, which only a program with a window system can draw: this test has one, off screen.
#include "tags/TagLibTagsHelper.h"

#include "platform/images/ImageData.h"
#include "tags/TagFiles.h"

#include <QColor>
#include <QGuiApplication>
#include <QImage>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

TagsObject recordWithDrawing()
{
    TagsObject tags;
    tags.setAlbumArt(Image::fromData("<svg xmlns='http://www.w3.org/2000/svg' width='8' height='6'>"
                                     "<rect width='8' height='6' fill='#00ff00'/></svg>"));
    return tags;
}

} // namespace

TEST(Drawing, HasNoBitmapAndIsDrawnAsPng)
{
    const auto image = recordWithDrawing().albumArt();
    ASSERT_TRUE(image);
    EXPECT_EQ(image->lastBitmap(), nullptr);
    const auto drawn = Image::fromData(getPNGDataForImage(image));
    ASSERT_TRUE(drawn && drawn->lastBitmap());
    EXPECT_EQ(drawn->drawn().size(), QSize(8, 6));
    EXPECT_EQ(drawn->drawn().pixelColor(4, 3), QColor(Qt::green));
}

TEST(Drawing, IsNoPictureForFlacAndAPngFrameForMP3)
{
    TagFiles files;
    TagLibTagsHelper().writeTagsForFLACFileTagObjectWriteEmptyTags(files.flac(), recordWithDrawing(), false);
    EXPECT_EQ(countOf(seenTags(files.flac()), u"PICTURE"_s), 0);
    TagLibTagsHelper().writeTagsForMP3FileTagObjectWriteEmptyTags(files.mp3(), recordWithDrawing(), false);
    EXPECT_EQ(countOf(seenTags(files.mp3()), u"APIC"_s), 1);
}

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
