#include "platform/errors/Exceptions.h"
#include "platform/images/ImageData.h"

#include <QBuffer>
#include <QColor>
#include <QImage>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

QImage painted(QImage::Format format, const QColor& color = Qt::red)
{
    QImage pixels(5, 3, format);
    pixels.fill(color);
    return pixels;
}

QByteArray encoded(const QImage& pixels, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(pixels.save(&buffer, format));
    return bytes;
}

} // namespace

TEST(Image, DecodesPngAndJpegWithSizeAndDepth)
{
    const auto photograph = Image::fromData(encoded(painted(QImage::Format_RGB32), "jpeg"));
    ASSERT_TRUE(photograph && photograph->lastBitmap());
    EXPECT_EQ(photograph->lastBitmap()->pixelsWide(), 5);
    EXPECT_EQ(photograph->lastBitmap()->pixelsHigh(), 3);
    EXPECT_EQ(photograph->lastBitmap()->bitsPerPixel(), 24);
    const auto translucent = Image::fromData(encoded(painted(QImage::Format_ARGB32, QColor(9, 9, 9, 128)), "png"));
    ASSERT_TRUE(translucent && translucent->lastBitmap());
    EXPECT_EQ(translucent->lastBitmap()->bitsPerPixel(), 32);
    const auto grey = Image::fromData(encoded(painted(QImage::Format_Grayscale8), "png"));
    ASSERT_TRUE(grey && grey->lastBitmap());
    EXPECT_EQ(grey->lastBitmap()->bitsPerPixel(), 8);
}

TEST(Image, BytesWithoutAPictureGiveNoObject)
{
    EXPECT_EQ(Image::fromData({}), nullptr);
    EXPECT_EQ(Image::fromData("no picture at all"), nullptr);
    EXPECT_EQ(Image::fromData(encoded(painted(QImage::Format_RGB32), "png").left(20)), nullptr);
    EXPECT_EQ(Image::fromPixels({}), nullptr);
}

TEST(Image, DrawingWithoutAWindowSystemGivesNoObject)
{
    EXPECT_EQ(Image::fromData("<svg xmlns='http://www.w3.org/2000/svg' width='8' height='6'><text>x</text></svg>"),
              nullptr);
}

TEST(Image, HeaderWithAHugeSizeGivesNoObject)
{
    QByteArray bytes = encoded(painted(QImage::Format_RGB32), "bmp");
    for (const int at : {18, 22})
        bytes.replace(at, 4, QByteArray::fromHex("00000100"));
    EXPECT_EQ(Image::fromData(bytes), nullptr);
}

TEST(Image, HeaderThatClaimsMoreThanTheBytesHoldGivesNoObject)
{
    QByteArray bytes = encoded(painted(QImage::Format_RGB32), "jpeg");
    const auto frame = bytes.indexOf(QByteArray::fromHex("ffc0"));
    bytes.replace(frame + 5, 4, QByteArray::fromHex("1f001f00")); // 7936 pixels square, within the limit of memory
    EXPECT_EQ(Image::fromData(bytes), nullptr);
    EXPECT_TRUE(Image::fromData(encoded(QImage(4000, 4000, QImage::Format_Mono), "png")));
}

TEST(Image, IconWithSeveralSizesHasSeveralFormsAndTheLastCounts)
{
    // Two entries that point at two PNG files of different sizes.
    const QByteArray small = encoded(QImage(16, 16, QImage::Format_ARGB32), "png");
    const QByteArray large = encoded(QImage(32, 32, QImage::Format_ARGB32), "png");
    const auto number = [](quint32 value) { return QByteArray(reinterpret_cast<const char*>(&value), 4); };
    QByteArray icon = QByteArray::fromHex("000001000200");
    icon += QByteArray::fromHex("1010000001002000") + number(small.size()) + number(38);
    icon += QByteArray::fromHex("2020000001002000") + number(large.size()) + number(38 + small.size());
    const auto image = Image::fromData(icon + small + large);
    ASSERT_TRUE(image);
    ASSERT_EQ(image->representations().size(), 2u);
    EXPECT_EQ(image->lastBitmap()->pixelsWide(), 32);
    EXPECT_EQ(Image::fromData(getPNGDataForImage(image))->drawn().width(), 32);
}

TEST(Image, FilmIsItsFirstFrame)
{
    const auto frame = [](const char* pixel) {
        return QByteArray::fromHex("2c0000000001000100000202") + QByteArray::fromHex(pixel) + QByteArray(1, '\0');
    };
    const QByteArray head = "GIF89a" + QByteArray::fromHex("0100010080000000ff00ff0000");
    const QByteArray still = QByteArray::fromHex("21f9040000000000");
    const auto image = Image::fromData(head + still + frame("4401") + still + frame("4c01") + ";");
    ASSERT_TRUE(image);
    EXPECT_EQ(image->representations().size(), 1u);
    EXPECT_EQ(image->drawn().pixelColor(0, 0), QColor(Qt::green));
}

TEST(ImageData, WritesPngWhateverTheImageWas)
{
    const auto image = Image::fromData(encoded(painted(QImage::Format_RGB32), "bmp"));
    ASSERT_TRUE(image);
    const QByteArray png = getPNGDataForImage(image);
    EXPECT_TRUE(png.startsWith("\x89PNG\r\n\x1a\n"));
    EXPECT_EQ(png, getBitmapDataForImage(image, ImageFileType::PNG));
    EXPECT_EQ(Image::fromData(png)->drawn().convertToFormat(QImage::Format_RGB32), painted(QImage::Format_RGB32));
}

TEST(ImageData, IsCodedOnceForManyFiles)
{
    const auto image = Image::fromPixels(painted(QImage::Format_RGB32));
    EXPECT_EQ(getPNGDataForImage(image).constData(), getPNGDataForImage(image).constData());
}

TEST(Image, TellsTheFileThatItWasReadFrom)
{
    const QByteArray jpeg = encoded(painted(QImage::Format_RGB32), "jpeg");
    EXPECT_EQ(Image::fromData(jpeg)->file().kind, u"JPEG"_s);
    EXPECT_EQ(Image::fromData(jpeg)->file().size, jpeg.size());
    EXPECT_EQ(Image::fromPixels(painted(QImage::Format_RGB32))->file().kind, QString());
}

TEST(ImageData, NoImageIsAnAssertion)
{
    try {
        getPNGDataForImage(nullptr);
        FAIL() << "nothing was thrown";
    } catch (const AssertionException& fault) {
        EXPECT_EQ(fault.reason(), u"Invalid parameter not satisfying: nil != image"_s);
    }
}
