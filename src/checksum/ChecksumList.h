// What the three kinds of checksum lists share: a first line that tells where they come from, and reading them whole.
#pragma once

#include "platform/text/Text.h"

namespace zolt::checksumList {

/// The first line of a list that this program writes: program version and the present moment.
/// @param format  with two %@, for version and date, and the line ends
QString header(const QString& format);

/// Writes a list whole or not at all. It is UTF-8, so that it can be read again: a name that is not stands in it as a
/// person reads it, and will not be found under that. @return false if it could not be written
bool write(const QString& path, const QString& text);

/// The file's text. @return nothing if it cannot be read or is not UTF-8
OptionalText text(const QString& path);

/// The file's lines; none where `text` gives nothing.
QStringList lines(const QString& path);

/// The file beside the list that a line names.
QString besideList(const QString& list, const QString& name);

} // namespace zolt::checksumList
