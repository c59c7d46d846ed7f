// A text kept as its bytes, for which UTF-16 has to be made when somebody asks.
#pragma once

#include "regex/TextHash.h"

#include <QAnyStringView>
#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace zolt {

/// An immutable text that owns UTF-8 or Latin-1 bytes. Copies share their data; any thread.
class EncodedText
{
public:
    /// @return nothing if the bytes are not valid UTF-8 or are more than ICU can count (2^31 - 1)
    static std::optional<EncodedText> fromUtf8(const QByteArray& bytes);
    static EncodedText fromLatin1(const QByteArray& bytes);

    /// In UTF-16 units.
    qsizetype length() const { return data_->length; }
    /// Of the UTF-16 units; counted once, when the text is made.
    std::size_t hash() const { return data_->hash; }
    /// Equal for texts that share their data.
    const void* identity() const { return data_.get(); }
    /// The characters without a copy, good while a text with this data lives.
    QAnyStringView view() const;
    /// Writes length() units to `to`, which has room for them; no closing zero.
    void copyUnits(char16_t* to) const;

private:
    enum class Encoding { Utf8, Latin1 };
    struct Data
    {
        Encoding encoding;
        QByteArray bytes;
        qsizetype length;
        std::size_t hash;
    };

    EncodedText(Encoding encoding, const QByteArray& bytes, qsizetype length);

    std::shared_ptr<const Data> data_;
};

} // namespace zolt
