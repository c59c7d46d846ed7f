#include "platform/text/Scanner.h"

namespace zolt {

namespace {

/// How many units at the start of the text are in the set, or are not in it.
qsizetype lengthOfRun(QStringView text, CharacterSet set, bool inSet)
{
    const auto end = std::find_if(text.begin(), text.end(), [&](QChar unit) { return isInSet(unit, set) != inSet; });
    return end - text.begin();
}

} // namespace

qsizetype Scanner::nextLocation() const
{
    return location_ + lengthOfRun(QStringView(text_).sliced(location_), CharacterSet::WhiteSpaceAndNewlines, true);
}

QStringView Scanner::rest() const
{
    return QStringView(text_).sliced(nextLocation());
}

bool Scanner::take(qsizetype length, QString* taken)
{
    if (length == 0) return false;
    const QStringView piece = rest().first(length);
    location_ = nextLocation() + length;
    if (taken) *taken = piece.toString();
    return true;
}

bool Scanner::scanUpTo(const QString& stop, QString* taken)
{
    const qsizetype found = stop.isEmpty() ? -1 : rest().indexOf(stop);
    return take(found < 0 ? rest().size() : found, taken);
}

bool Scanner::scanUpToSet(CharacterSet set, QString* taken)
{
    return take(lengthOfRun(rest(), set, false), taken);
}

bool Scanner::scanSet(CharacterSet set, QString* taken)
{
    return take(lengthOfRun(rest(), set, true), taken);
}

bool Scanner::scanString(const QString& expected, QString* taken)
{
    return rest().startsWith(expected) && take(expected.size(), taken);
}

bool Scanner::scanInt(int* taken)
{
    QString number;
    if (!take(wholeNumberLength(rest()), &number)) return false;
    if (taken) *taken = intValue(number);
    return true;
}

bool Scanner::scanDouble(double* taken)
{
    QString number;
    if (!take(decimalNumberLength(rest()), &number)) return false;
    if (taken) *taken = doubleValue(number);
    return true;
}

} // namespace zolt
