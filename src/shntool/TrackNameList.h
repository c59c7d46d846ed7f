// The track names in a text that people wrote, such as a concert's information file.
#pragma once

#include <QString>

namespace zolt {

/// The names of the numbered lines, one a line, each with a line end; empty if there is none.
///
/// Lines count from the first one with the number 1; from there on every line that begins with a number is a name, in
/// whatever order, without its number and without a playing time at its end. A line that begins with a date is none.
/// Nothing but the number gives "(blank)", and nothing but a number and a time an empty name. Any thread.
/// @throws what the regular-expression layer throws
QString trackNamesIn(const QString& text);

} // namespace zolt
