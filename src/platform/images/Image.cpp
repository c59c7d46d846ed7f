#include "platform/images/Image.h"

#include "platform/images/Pictures.h"

namespace zolt {

std::shared_ptr<const Image> Image::fromData(const QByteArray& bytes)
{
    // Most files carry none, and then nothing is opened.
    return bytes.isEmpty() || !pictures() ? nullptr : pictures()->read(bytes);
}

std::shared_ptr<const Image> Image::fromPixels(const QImage& pixels)
{
    return pictures() ? pictures()->take(pixels) : nullptr;
}

const ImageRepresentation* Image::lastBitmap() const
{
    const auto found = std::find_if(representations_.rbegin(), representations_.rend(),
                                    [](const ImageRepresentation& form) { return form.isBitmap(); });
    return found == representations_.rend() ? nullptr : &*found;
}

} // namespace zolt
