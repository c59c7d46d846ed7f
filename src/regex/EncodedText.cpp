#include "regex/EncodedText.h"

#include <unicode/ustring.h>

#include <limits>

namespace zolt {

namespace {

/// How many UTF-16 units the UTF-8 bytes make; nothing if they are not valid.
std::optional<qsizetype> unitsOfUtf8(const QByteArray& bytes)
{
    if (bytes.size() > std::numeric_limits<int32_t>::max()) return std::nullopt;
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(nullptr, 0, &length, bytes.constData(), static_cast<int32_t>(bytes.size()), &status);
    if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) return std::nullopt;
    return length;
}

/// The bytes in memory of their own, also where they only point into somebody else's.
QByteArray ownedBytes(const QByteArray& bytes)
{
    return bytes.capacity() > 0 ? bytes : QByteArray(bytes.constData(), bytes.size());
}

} // namespace

std::optional<EncodedText> EncodedText::fromUtf8(const QByteArray& bytes)
{
    const std::optional<qsizetype> length = unitsOfUtf8(bytes);
    if (!length) return std::nullopt;
    return EncodedText(Encoding::Utf8, bytes, *length);
}

EncodedText EncodedText::fromLatin1(const QByteArray& bytes)
{
    return EncodedText(Encoding::Latin1, bytes, bytes.size());
}

EncodedText::EncodedText(Encoding encoding, const QByteArray& bytes, qsizetype length)
{
    auto data = std::make_shared<Data>(Data{encoding, ownedBytes(bytes), length, 0});
    data_ = data;
    QString units(length, Qt::Uninitialized);
    copyUnits(reinterpret_cast<char16_t*>(units.data()));
    data->hash = hashOfUnits(units);
}

QAnyStringView EncodedText::view() const
{
    const QByteArray& bytes = data_->bytes;
    if (data_->encoding == Encoding::Latin1) return QLatin1String(bytes.constData(), bytes.size());
    return QUtf8StringView(bytes.constData(), bytes.size());
}

void EncodedText::copyUnits(char16_t* to) const
{
    const QByteArray& bytes = data_->bytes;
    if (data_->encoding == Encoding::Latin1) {
        std::transform(bytes.begin(), bytes.end(), to, [](char byte) { return static_cast<unsigned char>(byte); });
        return;
    }
    // ICU's converter, for it stays inside the given room; Qt's may write a few units more.
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(to, static_cast<int32_t>(data_->length), nullptr, bytes.constData(),
                  static_cast<int32_t>(bytes.size()), &status);
}

} // namespace zolt
