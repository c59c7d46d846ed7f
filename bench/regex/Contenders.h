// The ways to search console pieces that the benchmark compares.
#pragma once

#include "platform/base.h"

namespace zolt {

/// One way. `match` and `replace` return the summed length of what they found and made, the same for every way.
struct Contender
{
    QString name;
    std::function<qsizetype(const QStringList& pieces)> match;
    std::function<qsizetype(const QStringList& pieces)> replace;
};

/// All ways for one pattern; the second is what the first is measured against.
std::vector<Contender> contenders(const QString& pattern, const QString& replacement);

} // namespace zolt
