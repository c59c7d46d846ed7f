#include "platform/images/ImageData.h"

#include "platform/errors/Exceptions.h"

using namespace Qt::StringLiterals;

namespace zolt {

QByteArray getBitmapDataForImage(const std::shared_ptr<const Image>& image, ImageFileType type)
{
    if (!image) throw AssertionException(u"Invalid parameter not satisfying: nil != image"_s);
    return image->data(type);
}

QByteArray getPNGDataForImage(const std::shared_ptr<const Image>& image)
{
    return getBitmapDataForImage(image, ImageFileType::PNG);
}

} // namespace zolt
