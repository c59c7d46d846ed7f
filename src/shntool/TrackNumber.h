// How a track's number is written in lists and file names.
#pragma once

#include <QString>

namespace zolt {

/// With two digits at least: "01", "10", "123".
inline QString trackNumber(qsizetype number)
{
    return (number < 10 ? QStringLiteral("0") : QString()) + QString::number(number);
}

} // namespace zolt
