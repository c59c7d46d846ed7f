// Writes an MP4 file anew in optimised form.
#pragma once

#include "tags/mp4/Mp4Document.h"

namespace zolt {

/// Writes the document, with its index as it is in memory, to `target`: the index ahead of the media data, free space
/// gone, all positions right, everything else byte for byte. Flat memory: media data are copied in pieces.
/// The old file's access bits and owner are taken over, and the bytes are on the disk when this returns.
/// Blocks; any thread. The document's own file is only read.
/// @throws Mp4Error if the target cannot be written or the file cannot be rearranged safely; `target` is worth nothing
/// then
void writeOptimized(const Mp4Document& document, const QString& target);

} // namespace zolt
