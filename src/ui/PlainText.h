// Texts that hold names, where a widget would take them for markup.
#pragma once

#include <QString>

namespace zolt {

/// The text as a tool tip that shows it as it stands, line by line: a name that looks like markup is none, and one that
/// is not UTF-8 can be read.
QString plainToolTip(const QString& text);

/// The text for a place whose lines begin on that side: one that begins with a number, as "01 Intro.flac", or ends with
/// dots keeps its order from right to left too.
QString inReadingOrder(const QString& text, Qt::LayoutDirection direction);

} // namespace zolt
