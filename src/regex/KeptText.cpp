#include "regex/KeptText.h"

namespace zolt {

// Emplaced, not assigned: an assignment runs inside Qt, where the thread sanitizer does not see the count go down.
void KeptText::keep(RegexText text)
{
    if (const EncodedText* encoded = text.encoded()) {
        kept_.emplace<EncodedText>(*encoded);
    } else if (const QString* unicode = text.unicode()) {
        text.ownsData() ? kept_.emplace<QString>(*unicode)
                        : kept_.emplace<QString>(unicode->constData(), unicode->size());
    } else {
        drop();
    }
}

} // namespace zolt
