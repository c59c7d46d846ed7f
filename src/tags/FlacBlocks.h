// The blocks of metadata at the start of a FLAC file.
#pragma once

#include <QString>

namespace zolt {

/// Bytes of the blocks that a writer of tags makes anew: comments, pictures and padding, their headers included.
/// 0 for a file that is none. Any thread.
qint64 sizeOfFlacTags(const QString& path);

} // namespace zolt
