#include "regex/RegexText.h"

namespace zolt {

namespace {

/// The text in memory of its own. A capacity of 0 is what literals and texts made by fromRawData have.
QString ownedText(const QString& text)
{
    return text.capacity() > 0 ? text : QString(text.constData(), text.size());
}

} // namespace

std::size_t RegexText::hash() const
{
    if (const QString* text = unicode()) return hashOfUnits(*text);
    return encoded() ? encoded()->hash() : 0;
}

QAnyStringView RegexText::view() const
{
    if (const QString* text = unicode()) return *text;
    return encoded() ? encoded()->view() : QAnyStringView();
}

bool RegexText::operator==(const RegexText& other) const
{
    if (isPresent() != other.isPresent() || length() != other.length()) return false;
    return view() == other.view();
}

void RegexText::copyUnits(char16_t* to) const
{
    if (const EncodedText* text = encoded()) {
        text->copyUnits(to);
    } else {
        std::copy_n(directUnits(), length(), to);
    }
}

RegexText RegexText::owned() const
{
    if (const QString* text = unicode()) return ownedText(*text);
    return *this;
}

QString RegexText::text(TextRange range) const
{
    const QString whole = unicode() ? *unicode() : view().toString();
    return ownedText(whole.mid(range.location, range.length));
}

} // namespace zolt
