// Pictures as the tags carry them: decoded from bytes, shown in a window, written as PNG.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <memory>
#include <vector>

class QImage;

namespace zolt {

/// Kinds of picture file, by the numbers that callers know them under.
enum class ImageFileType { PNG = 4 };

/// One form of an image. A bitmap form has pixels of its own; a drawing (SVG) has only the size that it is drawn in.
class ImageRepresentation
{
public:
    ImageRepresentation(QSize size, int bitsPerPixel, bool isBitmap)
        : size_(size), bitsPerPixel_(bitsPerPixel), isBitmap_(isBitmap)
    {
    }

    int pixelsWide() const { return size_.width(); }
    int pixelsHigh() const { return size_.height(); }
    /// Colour and alpha bits of one pixel, without filling: 24 for a photograph, 32 with transparency, 8 for grey.
    int bitsPerPixel() const { return bitsPerPixel_; }
    bool isBitmap() const { return isBitmap_; }

private:
    QSize size_;
    int bitsPerPixel_;
    bool isBitmap_;
};

/// The picture file that an image was read from.
struct ImageFile
{
    QString kind; ///< "JPEG", "PNG"; empty for an image of mere pixels
    qint64 size = 0;
};

/// An image and all its forms. Never changed after it was made, so any thread may read it; needs no window.
class Image
{
public:
    virtual ~Image() = default;
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    /// The image in `bytes` (PNG, JPEG, GIF, BMP, ICO and what else Qt's readers know).
    /// No object for bytes that hold none, for one larger than 256 MiB in memory,
    /// and for a drawing where the program has no window system to draw it with.
    static std::shared_ptr<const Image> fromData(const QByteArray& bytes);

    /// An image with one bitmap form. No object for a null picture.
    static std::shared_ptr<const Image> fromPixels(const QImage& pixels);

    /// All forms in the order of the file: several for an icon with several sizes. At least one.
    const std::vector<ImageRepresentation>& representations() const { return representations_; }

    /// Where it comes from.
    const ImageFile& file() const { return file_; }

    /// The last form that is a bitmap; nothing (null) if there is none.
    const ImageRepresentation* lastBitmap() const;

    /// The form that `drawn` gives: the last bitmap, or the drawing where there is none.
    const ImageRepresentation& shown() const { return lastBitmap() ? *lastBitmap() : representations_.back(); }

    /// The pixels of the last bitmap, or of the drawing where there is no bitmap. Never null.
    virtual const QImage& drawn() const = 0;

    /// What `drawn` gives, as a picture file. Coded once: a cover goes into many files.
    virtual QByteArray data(ImageFileType type) const = 0;

protected:
    Image(std::vector<ImageRepresentation> representations, ImageFile file)
        : representations_(std::move(representations)), file_(std::move(file))
    {
    }

private:
    std::vector<ImageRepresentation> representations_;
    ImageFile file_;
};

} // namespace zolt
