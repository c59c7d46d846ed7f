// Pictures as the tags carry them: decoded from bytes, shown in a window, written as PNG.
#pragma once

#include <QByteArray>
#include <QImage>

#include <memory>
#include <vector>

namespace zolt {

/// One form of an image. A bitmap form has pixels of its own; a drawing (SVG) only looks like `pixels` when drawn.
struct ImageRepresentation
{
    QImage pixels;
    bool isBitmap = true;

    int pixelsWide() const { return pixels.width(); }
    int pixelsHigh() const { return pixels.height(); }
    /// Colour and alpha bits of one pixel, without filling: 24 for a photograph, 32 with transparency, 8 for grey.
    int bitsPerPixel() const { return pixels.bitPlaneCount(); }
};

/// An image and all its forms. Never changed after it was made, so any thread may read it; needs no window.
class Image
{
public:
    /// The image in `bytes` (PNG, JPEG, GIF, BMP, ICO and what else Qt's readers know).
    /// No object for bytes that hold none, for one larger than 256 MiB in memory,
    /// and for a drawing where the program has no window system to draw it with.
    static std::shared_ptr<const Image> fromData(const QByteArray& bytes);

    /// An image with one bitmap form. No object for a null picture.
    static std::shared_ptr<const Image> fromPixels(const QImage& pixels);

    /// All forms in the order of the file: several for an icon with several sizes. At least one.
    const std::vector<ImageRepresentation>& representations() const { return representations_; }

    /// The last form that is a bitmap; nothing (null) if there is none.
    const ImageRepresentation* lastBitmap() const;

    /// The pixels of the last bitmap, or of the drawing where there is no bitmap. Never null.
    const QImage& drawn() const;

private:
    explicit Image(std::vector<ImageRepresentation> representations) : representations_(std::move(representations)) {}

    std::vector<ImageRepresentation> representations_;
};

} // namespace zolt
