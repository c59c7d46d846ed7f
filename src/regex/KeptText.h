// A text that the cache holds on to.
#pragma once

#include "regex/RegexText.h"

namespace zolt {

/// Keeps a text alive and unchanged, so that nothing else can get its identity: shares its data, or copies them if the
/// text does not own them.
class KeptText
{
public:
    /// @param text  any text but the kept one itself; no text is kept as none
    void keep(RegexText text);
    void drop();
    /// The kept text, good until the next change; no text if nothing is kept.
    RegexText text() const;

private:
    OptionalText unicode_;
    std::optional<EncodedText> encoded_;
};

inline RegexText KeptText::text() const
{
    return encoded_ ? RegexText(*encoded_) : RegexText(unicode_);
}

} // namespace zolt
