// How "shntool conv" is called. It names an output after its source, whatever that is spelled like.
#pragma once

#include <QString>
#include <QStringList>

namespace zolt::shntool {

/// To a format that shntool knows by itself ("shn", "wav", "aiff"). The source stands at index 9.
QStringList toFormat(const QString& format, const QString& folder, const QString& source);
/// Through an encoder of the caller's own. The output folder stands at index 6, the source at index 9.
/// @param specification  "cust ext=", the extension and the encoder's command line, with "%f" for its output
QStringList throughEncoder(const QString& specification, const QString& folder, const QString& source);

/// The source of either vector. @throws RangeException for a vector too short to hold one
QString sourceOf(const QStringList& arguments);

/// What shntool runs to read a kind of source: one tool, or none.
/// @param type  the extension in upper case
QStringList readersOf(const QString& type);

} // namespace zolt::shntool
