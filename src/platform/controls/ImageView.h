// A place for one picture.
#pragma once

#include "platform/controls/Control.h"

#include <memory>

namespace zolt {

class Image;

class ImageView : public Control
{
public:
    /// The picture; no object where there is none.
    std::shared_ptr<const Image> image() const { return read(image_); }
    void setImage(const std::shared_ptr<const Image>& image) { write(image_, image); }

private:
    std::shared_ptr<const Image> image_;
};

} // namespace zolt
