// Files as the addresses by which programs hand them to each other. A name is bytes (see FileNames.h), and none is lost
// either way. Any thread.
#pragma once

#include "platform/text/Text.h"

#include <QUrl>

namespace zolt {

/// The full path that a "file:" address means; absent for an address of anything that this machine does not hold.
OptionalText pathOfUri(const QUrl& uri);

/// The address of the file, with what is no plain letter as its bytes' numbers.
QString uriOfPath(const QString& path);

} // namespace zolt
