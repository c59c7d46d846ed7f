// What the three kinds of checksum lists share: a first line that tells where they come from, and reading them whole.
#pragma once

#include "platform/text/Text.h"

namespace zolt::checksumList {

/// The first line of a list that this program writes, without its line end: program version and the present moment.
/// @param format  with two %@, for version and date
QString header(const QString& format);

/// The file's text. @return nothing if it cannot be read or is not UTF-8
OptionalText text(const QString& path);

/// The file's lines; none where `text` gives nothing.
QStringList lines(const QString& path);

/// The file beside the list that a line names.
QString besideList(const QString& list, const QString& name);

} // namespace zolt::checksumList
