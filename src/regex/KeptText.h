// A text that the cache holds on to.
#pragma once

#include "regex/RegexText.h"

#include <variant>

namespace zolt {

/// Keeps a text alive and unchanged, so that nothing else can get its identity: shares its data, or copies them if the
/// text does not own them.
class KeptText
{
public:
    /// @param text  any text but the kept one itself; no text is kept as none
    void keep(RegexText text);
    void drop() { kept_ = std::monostate(); }
    /// The kept text, good until the next change; no text if nothing is kept.
    RegexText text() const;

private:
    std::variant<std::monostate, QString, EncodedText> kept_;
};

inline RegexText KeptText::text() const
{
    if (const QString* unicode = std::get_if<QString>(&kept_)) return *unicode;
    if (const EncodedText* encoded = std::get_if<EncodedText>(&kept_)) return *encoded;
    return RegexText();
}

} // namespace zolt
