// Images as bytes of a picture file.
#pragma once

#include "platform/images/Image.h"

namespace zolt {

/// The last bitmap form of the image as a picture file; an image without one is drawn first.
/// @throws AssertionException for no image
QByteArray getBitmapDataForImage(const std::shared_ptr<const Image>& image, ImageFileType type);

/// The image as PNG bytes. @throws AssertionException for no image
QByteArray getPNGDataForImage(const std::shared_ptr<const Image>& image);

} // namespace zolt
