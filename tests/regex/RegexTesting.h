// Shared by the tests of the regular-expression layer.
#pragma once

#include "platform/errors/Exceptions.h"
#include "regex/RegexOperation.h"
#include "support/test.h"

namespace zolt {

/// An expectation's QString as a text in memory of its own, unlike a literal, which owns nothing.
inline QString ownText(const char16_t* text)
{
    const QStringView view(text);
    return QString(view.data(), view.size());
}

inline EncodedText latin1Text(const QByteArray& bytes)
{
    return EncodedText::fromLatin1(bytes);
}

inline OptionalText match(RegexCache& cache, RegexText subject, RegexText pattern)
{
    return rkl_performRegexOp(cache, RegexRequest::stringByMatching(subject, pattern));
}

inline OptionalText replace(RegexCache& cache, RegexText subject, RegexText pattern, RegexText replacement)
{
    return rkl_performRegexOp(
        cache, RegexRequest::stringByReplacingOccurrencesOfRegexWithString(subject, pattern, replacement));
}

/// What the work throws; a fault with the name "none" if it throws nothing.
inline PlatformException faultOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const PlatformException& fault) {
        return fault;
    }
    return PlatformException(QStringLiteral("none"), QString());
}

/// Different patterns, all kept in the set of the first.
inline QStringList patternsOfOneSet(int count)
{
    QStringList patterns;
    std::optional<std::size_t> set;
    for (int number = 0; patterns.size() < count; ++number) {
        const QString pattern = QStringLiteral("piece%1").arg(number);
        const std::size_t itsSet = CachedRegexTable::setOf(hashOfUnits(pattern), 0);
        if (!set) set = itsSet;
        if (set == itsSet) patterns << pattern;
    }
    return patterns;
}

inline std::size_t setOf(const QString& pattern)
{
    return CachedRegexTable::setOf(hashOfUnits(pattern), 0);
}

/// The pattern that a way of a set holds; no text if the entry is free.
inline const CachedRegex& entryAt(const RegexCache& cache, std::size_t set, std::size_t way)
{
    return cache.expressions.rkl_cachedRegexes()[set * CachedRegexTable::ways + way];
}

/// The entry that holds the pattern; null if none does.
inline const CachedRegex* entryOf(const RegexCache& cache, const QString& pattern)
{
    const auto& entries = cache.expressions.rkl_cachedRegexes();
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const CachedRegex& entry) {
        return entry.regexString.text() == RegexText(pattern);
    });
    return found == entries.end() ? nullptr : &*found;
}

} // namespace zolt
