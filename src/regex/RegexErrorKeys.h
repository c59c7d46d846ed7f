// Names, keys and texts by which a fault of an expression is told.
#pragma once

#include <QString>

namespace zolt {

/// The name of the exception for whatever ICU reports.
inline const QString RKLICURegexException = QStringLiteral("RKLICURegexException");
inline const QString RKLICURegexErrorDomain = QStringLiteral("RKLICURegexErrorDomain");

// Keys of the exception's user info; a key whose fact does not exist is left out. Numbers stand as decimal texts,
// ranges as "{location, length}".
inline const QString RKLICURegexRegexErrorKey = QStringLiteral("RKLICURegexRegex");
inline const QString RKLICURegexRegexOptionsErrorKey = QStringLiteral("RKLICURegexRegexOptions");
inline const QString RKLICURegexErrorCodeErrorKey = QStringLiteral("RKLICURegexErrorCode");
inline const QString RKLICURegexErrorNameErrorKey = QStringLiteral("RKLICURegexErrorName");
inline const QString RKLICURegexSubjectStringErrorKey = QStringLiteral("RKLICURegexSubjectString");
inline const QString RKLICURegexSubjectRangeErrorKey = QStringLiteral("RKLICURegexSubjectRange");
inline const QString RKLICURegexReplacementStringErrorKey = QStringLiteral("RKLICURegexReplacementString");
/// What had been made of the result before the fault.
inline const QString RKLICURegexReplacedStringErrorKey = QStringLiteral("RKLICURegexReplacedString");
/// How many matches had been replaced before the fault.
inline const QString RKLICURegexReplacedCountErrorKey = QStringLiteral("RKLICURegexReplacedCount");
/// For operations that enumerate matches; the two there are do not.
inline const QString RKLICURegexEnumerationOptionsErrorKey = QStringLiteral("RKLICURegexEnumerationOptions");
// Where ICU stopped reading a malformed pattern.
inline const QString RKLICURegexLineErrorKey = QStringLiteral("RKLICURegexLine");
inline const QString RKLICURegexOffsetErrorKey = QStringLiteral("RKLICURegexOffset");
inline const QString RKLICURegexPreContextErrorKey = QStringLiteral("RKLICURegexPreContext");
inline const QString RKLICURegexPostContextErrorKey = QStringLiteral("RKLICURegexPostContext");

// The words for a person.
inline const QString regexErrorDomainKey = QStringLiteral("ErrorDomain");
inline const QString regexErrorDescriptionKey = QStringLiteral("Description");
inline const QString regexErrorFailureReasonKey = QStringLiteral("FailureReason");

} // namespace zolt
