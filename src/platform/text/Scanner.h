// Walks over a text from its start, taking piece after piece.
#pragma once

#include "platform/text/Text.h"

namespace zolt {

/// Before every scan white space and newlines are skipped; a piece that is taken keeps the blanks at its end.
/// A scan that takes nothing leaves target and location as they are and returns false. A target that is nullptr
/// means that the piece is passed over. Not shared between threads.
class Scanner
{
public:
    explicit Scanner(QString text) : text_(std::move(text)) {}

    /// Takes everything up to `stop`, or to the end if `stop` does not follow. False if `stop` or the end is next.
    bool scanUpTo(const QString& stop, QString* taken = nullptr);

    /// Takes everything up to the first character of the set, or to the end.
    bool scanUpToSet(CharacterSet set, QString* taken = nullptr);

    /// Takes the characters that are of the set, as many as follow one another.
    bool scanSet(CharacterSet set, QString* taken = nullptr);

    /// Takes exactly `expected`, if that is next.
    bool scanString(const QString& expected, QString* taken = nullptr);

    /// Takes a whole number with an optional sign, held to 32 bits.
    bool scanInt(int* taken = nullptr);

    /// Takes a decimal number with a point, whatever the locale.
    bool scanDouble(double* taken = nullptr);

    /// True if nothing but white space and newlines is left.
    bool isAtEnd() const { return nextLocation() == text_.size(); }

    /// Index of the first unit not yet taken, in UTF-16 units; blanks ahead of the next piece count as not taken.
    qsizetype location() const { return location_; }

private:
    qsizetype nextLocation() const;
    QStringView rest() const;
    bool take(qsizetype length, QString* taken);

    QString text_;
    qsizetype location_ = 0;
};

} // namespace zolt
