// The lines of an MD5 list.
#pragma once

#include <QStringList>

namespace zolt {

class ZOLTTask;

/// Digests each file while the row shows its name and how many are done, and gives the text of the list: LF at each
/// line's end, names without folders, in the order given. A file that is missing has the digest of nothing. Blocks.
QString md5List(const QStringList& files, const ZOLTTask& row);

} // namespace zolt
