#include "regex/RegexText.h"

namespace zolt {

std::size_t RegexText::hash() const
{
    if (const EncodedText* text = encoded()) return text->hash();
    return isPresent() ? hashOfUnits(*unicode()) : 0;
}

QAnyStringView RegexText::view() const
{
    if (const EncodedText* text = encoded()) return text->view();
    return isPresent() ? QAnyStringView(*unicode()) : QAnyStringView();
}

bool RegexText::operator==(RegexText other) const
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

QString RegexText::text(TextRange range) const
{
    if (isEncoded()) return view().toString().mid(range.location, range.length);
    if (range.length == length() && ownsData()) return *unicode();
    return QString(unicode()->constData() + range.location, range.length);
}

} // namespace zolt
