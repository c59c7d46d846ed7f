// What a line of an ST5 list holds: a hash, a separator, a name.
#pragma once

#include <QString>

namespace zolt {

inline constexpr QLatin1String st5Separator("  [shntool]  ");

} // namespace zolt
