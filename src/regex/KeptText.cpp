#include "regex/KeptText.h"

namespace zolt {

void KeptText::keep(RegexText text)
{
    if (const EncodedText* encoded = text.encoded()) {
        kept_ = *encoded;
    } else if (const QString* unicode = text.unicode()) {
        kept_ = text.ownsData() ? *unicode : QString(unicode->constData(), unicode->size());
    } else {
        drop();
    }
}

} // namespace zolt
