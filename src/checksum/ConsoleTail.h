// The closing words of a tool: its console text from the last progress line on.
#pragma once

#include <QString>

namespace zolt {

/// For flac. @return the text from the last line that holds "% complete"; without one the whole text behind a line end
QString flacClosingWords(const QString& console);

/// For mac: every line gets a line end more.
/// @return the title, then the text from the last line that holds "Progress: "; without one the text alone
QString apeClosingWords(const QString& console, const QString& title);

} // namespace zolt
