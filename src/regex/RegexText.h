// A text as the regular-expression layer takes it.
#pragma once

#include "platform/text/Text.h"
#include "regex/EncodedText.h"
#include "regex/TextRange.h"

namespace zolt {

/// A QString, which gives out its UTF-16 directly, an EncodedText, whose UTF-16 must be copied out, or no text.
/// Made from any of them without a word, for the length of a call: it borrows the text and takes no memory.
/// What is to be kept goes into a KeptText.
class RegexText
{
public:
    RegexText() = default;
    RegexText(std::nullopt_t) {}
    RegexText(const QString& text) : word_(reinterpret_cast<std::uintptr_t>(&text)) {}
    RegexText(const EncodedText& text) : word_(reinterpret_cast<std::uintptr_t>(&text) | encodedMark) {}
    RegexText(const OptionalText& text) : word_(text ? RegexText(*text).word_ : 0) {}

    bool isPresent() const { return word_ != 0; }
    /// In UTF-16 units; 0 for no text.
    qsizetype length() const;
    /// Of the UTF-16 units, so that equal texts of both kinds have the same.
    std::size_t hash() const;
    /// Equal for texts that share their data; together with the length this stands for "the same object".
    const void* identity() const;
    /// True if both are the same object: nothing is compared by value.
    bool isSame(RegexText other) const;
    /// True if both have the same units; the kind does not matter.
    bool operator==(RegexText other) const;

    /// The text's own UTF-16, or null if it has to be copied out.
    const char16_t* directUnits() const;
    /// Writes length() units to `to`, which has room for them; no closing zero.
    void copyUnits(char16_t* to) const;

    /// The borrowed texts themselves, null if the text is not of that kind.
    const QString* unicode() const { return isEncoded() ? nullptr : reinterpret_cast<const QString*>(word_); }
    const EncodedText* encoded() const
    {
        return isEncoded() ? reinterpret_cast<const EncodedText*>(word_ & ~encodedMark) : nullptr;
    }
    /// False if the data are somebody else's and may change or go while the text lives, as a literal's or those of
    /// QString::fromRawData. An empty text never owns any.
    bool ownsData() const;

    /// The text of the range, which lies within it. Shares data where it can and never borrows them.
    QString text(TextRange range) const;
    QString text() const { return text({0, length()}); }
    /// The name of the kind, for the texts of faults.
    const char* className() const { return isEncoded() ? "EncodedText" : "QString"; }

private:
    bool isEncoded() const { return (word_ & encodedMark) != 0; }
    QAnyStringView view() const;

    /// In the lowest bit, which is 0 in the address of either kind.
    static constexpr std::uintptr_t encodedMark = 1;
    static_assert(alignof(QString) > 1 && alignof(EncodedText) > 1);
    /// The borrowed text's address and its kind: one word, as a text is handed on a dozen times in each search.
    std::uintptr_t word_ = 0;
};

inline qsizetype RegexText::length() const
{
    if (const EncodedText* text = encoded()) return text->length();
    return isPresent() ? unicode()->size() : 0;
}

inline const char16_t* RegexText::directUnits() const
{
    const QString* text = unicode();
    return text ? reinterpret_cast<const char16_t*>(text->constData()) : nullptr;
}

inline const void* RegexText::identity() const
{
    if (const EncodedText* text = encoded()) return text->identity();
    return directUnits();
}

inline bool RegexText::isSame(RegexText other) const
{
    return identity() == other.identity() && length() == other.length() && isPresent() == other.isPresent();
}

inline bool RegexText::ownsData() const
{
    return isEncoded() || (isPresent() && unicode()->capacity() > 0);
}

} // namespace zolt
