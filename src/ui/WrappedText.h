// Text in a given number of lines.
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

namespace zolt {

/// The text broken into lines at its words, of so many pixels each; what does not fit the last one ends with an
/// ellipsis there. Line ends of its own count as blanks.
QStringList wrapped(const QString& text, const QFont& font, int width, int mostLines);

} // namespace zolt
