#include "platform/images/Image.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

/// More forms than any icon has; keeps a broken count from filling the memory.
constexpr int mostForms = 32;

/// Holds a header that lies about its size to this many mebibytes: 8192 pixels square.
constexpr int mostMebibytes = 256;

/// More pixels than one byte of a PNG or JPEG file can stand for: 1032 by compression, each byte eight pixels.
constexpr qint64 mostPixelsOfAByte = 10000;

/// A header may claim far more pixels than follow it; decoding such a file fills memory with nothing.
bool claimsTooMuch(const QImageReader& reader, qint64 bytes)
{
    const QByteArray format = reader.format();
    if (format != "png" && format != "jpeg") return false;
    const QSize size = reader.size();
    return qint64(size.width()) * size.height() > bytes * mostPixelsOfAByte;
}

bool isDrawing(const QByteArray& format)
{
    return format.startsWith("svg");
}

/// Text in a drawing needs fonts, and those abort a program without a window system.
bool canDraw()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

/// A film is one image, its first frame; an icon has as many forms as sizes.
int formsIn(const QImageReader& reader)
{
    return reader.supportsAnimation() ? 1 : std::clamp(reader.imageCount(), 1, mostForms);
}

std::vector<ImageRepresentation> readForms(QImageReader& reader)
{
    const bool isBitmap = !isDrawing(reader.format());
    if (!isBitmap && !canDraw()) return {};
    const int count = formsIn(reader);
    std::vector<ImageRepresentation> forms;
    for (int i = 0; i < count; ++i) {
        if (i > 0 && !reader.jumpToImage(i)) break;
        QImage pixels = reader.read();
        if (!pixels.isNull()) forms.push_back({std::move(pixels), isBitmap});
    }
    return forms;
}

} // namespace

std::shared_ptr<const Image> Image::fromData(const QByteArray& bytes)
{
    static std::once_flag limited;
    std::call_once(limited, [] { QImageReader::setAllocationLimit(mostMebibytes); });
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    if (claimsTooMuch(reader, bytes.size())) return nullptr;
    std::vector<ImageRepresentation> forms = readForms(reader);
    if (forms.empty()) return nullptr;
    return std::shared_ptr<const Image>(new Image(std::move(forms)));
}

std::shared_ptr<const Image> Image::fromPixels(const QImage& pixels)
{
    if (pixels.isNull()) return nullptr;
    return std::shared_ptr<const Image>(new Image({{pixels, true}}));
}

const ImageRepresentation* Image::lastBitmap() const
{
    const auto found = std::find_if(representations_.rbegin(), representations_.rend(),
                                    [](const ImageRepresentation& form) { return form.isBitmap; });
    return found == representations_.rend() ? nullptr : &*found;
}

const QImage& Image::drawn() const
{
    const ImageRepresentation* bitmap = lastBitmap();
    return bitmap ? bitmap->pixels : representations_.back().pixels;
}

} // namespace zolt
