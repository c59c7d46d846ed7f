// What went wrong while the lock was held, to be raised once it is dropped.
#pragma once

#include "regex/RegexRequest.h"

#include <unicode/parseerr.h>
#include <unicode/utypes.h>

namespace zolt {

/// A fault that was noted. Noting takes no memory and throws nothing.
struct RegexFault
{
    enum class Kind {
        None,
        Range,     ///< a text or a range that cannot be searched
        Compiling, ///< ICU refuses the pattern
        Running    ///< ICU fails in the search
    };

    Kind kind = Kind::None;
    const char* text = nullptr; ///< of a range fault
    UErrorCode status = U_ZERO_ERROR;
    std::optional<UParseError> position; ///< where the pattern is malformed, if ICU gave it

    explicit operator bool() const { return kind != Kind::None; }
    void noteRange(const char* what);
    /// Notes the status if it is an error, one above 0.
    void noteStatus(Kind when, UErrorCode icuStatus);
    /// Notes where a pattern is malformed; a line of 0 is no position.
    void notePosition(const UParseError& where);
};

/// How far a replacement had come.
struct PartialReplacement
{
    QString text;
    int count = 0;
};

/// The class and the method that a fault's text starts with.
QString rkl_stringFromClassAndMethod(const char* className, const char* method);

/// Raises the fault. The lock is not held.
/// @throws RangeException or a PlatformException with the name RKLICURegexException
[[noreturn]] void raiseFault(const RegexFault& fault, const RegexRequest& request, const PartialReplacement& done);

} // namespace zolt
