// Pictures by Qt's readers and writers, and the one way into their module.

#include "platform/images/Pictures.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>
#include <QImageWriter>

#include <algorithm>
#include <mutex>

namespace zolt {

namespace {

/// One form with its pixels.
struct Form
{
    QImage pixels;
    bool isBitmap = true;
};

class Picture : public Image
{
public:
    Picture(const std::vector<Form>& forms, ImageFile file)
        : Image(representationsOf(forms), std::move(file)), drawn_(drawnOf(forms))
    {
    }

    const QImage& drawn() const override { return drawn_; }

    QByteArray data(ImageFileType type) const override
    {
        switch (type) {
        case ImageFileType::PNG:
            std::call_once(isCoded_, [this] { png_ = coded("png"); });
            return png_;
        }
        return {};
    }

private:
    QByteArray coded(const char* format) const
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QImageWriter(&buffer, format).write(drawn_);
        return bytes;
    }

    static std::vector<ImageRepresentation> representationsOf(const std::vector<Form>& forms)
    {
        std::vector<ImageRepresentation> representations;
        for (const Form& form : forms)
            representations.emplace_back(form.pixels.size(), form.pixels.bitPlaneCount(), form.isBitmap);
        return representations;
    }

    static QImage drawnOf(const std::vector<Form>& forms)
    {
        const auto bitmap = std::find_if(forms.rbegin(), forms.rend(), [](const Form& form) { return form.isBitmap; });
        return bitmap == forms.rend() ? forms.back().pixels : bitmap->pixels;
    }

    QImage drawn_;
    mutable std::once_flag isCoded_;
    mutable QByteArray png_;
};

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

std::vector<Form> readForms(QImageReader& reader)
{
    const bool isBitmap = !isDrawing(reader.format());
    if (!isBitmap && !canDraw()) return {};
    const int count = formsIn(reader);
    std::vector<Form> forms;
    for (int i = 0; i < count; ++i) {
        if (i > 0 && !reader.jumpToImage(i)) break;
        QImage pixels = reader.read();
        if (!pixels.isNull()) forms.push_back({std::move(pixels), isBitmap});
    }
    return forms;
}

class PictureModule : public Pictures
{
public:
    PictureModule() { QImageReader::setAllocationLimit(mostMebibytes); }

    std::shared_ptr<const Image> read(const QByteArray& bytes) const override
    {
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        QImageReader reader(&buffer);
        if (claimsTooMuch(reader, bytes.size())) return nullptr;
        const QString kind = QString::fromLatin1(reader.format()).toUpper();
        const std::vector<Form> forms = readForms(reader);
        return forms.empty() ? nullptr : std::make_shared<const Picture>(forms, ImageFile{kind, bytes.size()});
    }

    std::shared_ptr<const Image> take(const QImage& pixels) const override
    {
        return pixels.isNull() ? nullptr
                               : std::make_shared<const Picture>(std::vector<Form>{{pixels, true}}, ImageFile());
    }
};

} // namespace

} // namespace zolt

extern "C" const zolt::Pictures* zoltPictures()
{
    static const zolt::PictureModule module;
    return &module;
}
