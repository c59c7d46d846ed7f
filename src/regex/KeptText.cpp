#include "regex/KeptText.h"

namespace zolt {

void KeptText::keep(RegexText text)
{
    if (const QString* unicode = text.unicode()) {
        encoded_.reset();
        text.ownsData() ? unicode_.emplace(*unicode) : unicode_.emplace(unicode->constData(), unicode->size());
    } else {
        unicode_.reset();
        if (text.encoded()) {
            encoded_.emplace(*text.encoded());
        } else {
            encoded_.reset();
        }
    }
}

void KeptText::drop()
{
    unicode_.reset();
    encoded_.reset();
}

} // namespace zolt
