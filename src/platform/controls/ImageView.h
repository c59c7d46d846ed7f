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

    /// What a person's drop, paste or removal does: sets the picture and performs the action. Nothing when disabled.
    /// Main thread.
    void replaceImage(const std::shared_ptr<const Image>& image)
    {
        if (!isEnabled()) return;
        setImage(image);
        performAction();
    }

private:
    std::shared_ptr<const Image> image_;
};

} // namespace zolt
