// What needs the picture libraries. They bring those of a window system with them, so they stand in a module of their
// own, which is opened when the first picture is read.
#pragma once

#include "platform/images/Image.h"

namespace zolt {

/// Stateless; any thread.
class Pictures
{
public:
    virtual ~Pictures() = default;

    /// As Image::fromData.
    virtual std::shared_ptr<const Image> read(const QByteArray& bytes) const = 0;

    /// As Image::fromPixels.
    virtual std::shared_ptr<const Image> take(const QImage& pixels) const = 0;
};

/// The module, opened by the first call; it stays open. Any thread.
/// @return nothing where it is missing, which is logged once
const Pictures* pictures();

} // namespace zolt
