#include "platform/images/ImageData.h"

#include "platform/errors/Exceptions.h"

#include <QBuffer>
#include <QImageWriter>

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

QByteArray formatName(ImageFileType type)
{
    switch (type) {
    case ImageFileType::PNG:
        return "png";
    }
    return {};
}

} // namespace

QByteArray getBitmapDataForImage(const std::shared_ptr<const Image>& image, ImageFileType type)
{
    if (!image) throw AssertionException(u"Invalid parameter not satisfying: nil != image"_s);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter(&buffer, formatName(type)).write(image->drawn());
    return bytes;
}

QByteArray getPNGDataForImage(const std::shared_ptr<const Image>& image)
{
    return getBitmapDataForImage(image, ImageFileType::PNG);
}

} // namespace zolt
