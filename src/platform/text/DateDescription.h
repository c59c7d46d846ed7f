// How a date stands in the files that the program writes.
#pragma once

#include <QString>

class QDateTime;

namespace zolt {

/// "YYYY-MM-DD HH:MM:SS +0000": date and time in the date's own time zone, a blank, and the sign and four digits
/// (hours, minutes) of its offset from GMT. Any thread.
QString dateDescription(const QDateTime& date);

} // namespace zolt
