// Puts the optimised form of a tagged M4A file in the file's place.
#pragma once

#include "tags/mp4/Mp4Document.h"

namespace zolt {

/// Writes the document optimised under a temporary name beside `path` and moves that file to `path`. A link stays one:
/// the file that it names is replaced. Blocks; any thread.
///
/// Where that fails the changed index is stored in the old file as it lies, without optimising, if that is safe.
/// @throws PlatformException of name "Exception", with one of the reasons of replaceFile or
/// "unable to optimize @% file"; no temporary file stays behind
/// @throws AssertionException if no temporary file can be made
void replaceWithOptimized(Mp4Document& document, const QString& path);

/// Moves a file over another in one step, so that `path` is never without one.
/// @throws PlatformException of name "Exception": "unable to delete file @%" if the old file stays where it is, or
/// "file @% was lost" if it is gone and the new one could not be moved (it stays under its temporary name then)
void replaceFile(const QString& temporary, const QString& path);

} // namespace zolt
