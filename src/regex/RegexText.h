// A text as the regular-expression layer takes and keeps it.
#pragma once

#include "platform/text/Text.h"
#include "regex/EncodedText.h"
#include "regex/TextRange.h"

#include <variant>

namespace zolt {

/// A QString, which gives out its UTF-16 directly, an EncodedText, whose UTF-16 must be copied out, or no text.
/// Made from either without a word. Holding one keeps the data alive and unchanged, unless the text does not own its
/// data (a literal, QString::fromRawData): take owned() of what is to be kept. Any thread.
class RegexText
{
public:
    RegexText() = default;
    RegexText(std::nullopt_t) {}
    RegexText(const QString& text) : text_(text) {}
    RegexText(const EncodedText& text) : text_(text) {}
    RegexText(const OptionalText& text)
    {
        if (text) text_ = *text;
    }

    bool isPresent() const { return text_.index() != 0; }
    /// In UTF-16 units; 0 for no text.
    qsizetype length() const;
    /// Of the UTF-16 units, so that equal texts of both kinds have the same.
    std::size_t hash() const;
    /// Equal for texts that share their data; together with the length this stands for "the same object".
    const void* identity() const;
    /// True if both are the same object: nothing is compared by value.
    bool isSame(const RegexText& other) const;
    /// True if both have the same units; the kind does not matter.
    bool operator==(const RegexText& other) const;

    /// The text's own UTF-16, or null if it has to be copied out.
    const char16_t* directUnits() const;
    /// Writes length() units to `to`, which has room for them; no closing zero.
    void copyUnits(char16_t* to) const;

    /// The same text with data of its own: shared if it owns them already, else copied.
    RegexText owned() const;
    /// The text of the range, which lies within it. Shares data where it can and never borrows them.
    QString text(TextRange range) const;
    QString text() const { return text({0, length()}); }
    /// The name of the kind, for the texts of faults.
    const char* className() const { return encoded() ? "EncodedText" : "QString"; }

private:
    const QString* unicode() const { return std::get_if<QString>(&text_); }
    const EncodedText* encoded() const { return std::get_if<EncodedText>(&text_); }
    QAnyStringView view() const;

    std::variant<std::monostate, QString, EncodedText> text_;
};

inline qsizetype RegexText::length() const
{
    if (const QString* text = unicode()) return text->size();
    return encoded() ? encoded()->length() : 0;
}

inline const void* RegexText::identity() const
{
    if (const QString* text = unicode()) return text->constData();
    return encoded() ? encoded()->identity() : nullptr;
}

inline bool RegexText::isSame(const RegexText& other) const
{
    return identity() == other.identity() && length() == other.length() && text_.index() == other.text_.index();
}

inline const char16_t* RegexText::directUnits() const
{
    const QString* text = unicode();
    return text ? reinterpret_cast<const char16_t*>(text->constData()) : nullptr;
}

} // namespace zolt
