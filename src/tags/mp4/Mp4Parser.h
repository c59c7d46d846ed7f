// Reads atoms with limits. Broken files carry sizes that are negative, huge or point back: nothing that stands in a
// file is followed, allocated or counted before it was held against the bytes that are really there.
#pragma once

#include "tags/mp4/Mp4Box.h"

#include <optional>

namespace zolt {

class RandomAccessFile;

/// Where an atom of a file's uppermost level lies.
struct Mp4FileAtom
{
    quint32 type = 0;
    quint64 offset = 0;
    quint64 headerSize = 0; ///< 8, or 16 with a 64-bit size
    quint64 size = 0;       ///< header included
    bool toEnd = false;     ///< written as "up to the end of the file"
    bool trailer = false;   ///< no atom: what lies behind the last one
    quint64 missing = 0;    ///< bytes of media data behind the end of a file that was cut

    quint64 end() const { return offset + size; }
    /// Bytes that are there.
    quint64 stored() const { return size - missing; }
};

/// The header at the start of `bytes` (at least 8 of them, 16 if there are as many).
/// @param available  bytes from there to the end of what contains the atom
/// @return nothing if the atom does not fit
std::optional<Mp4FileAtom> atomHeader(QByteArrayView bytes, quint64 available);

/// The atoms of the uppermost level, one behind the other. Media data that were cut reach to the end of the file. What
/// lies behind the last atom and is none, up to 1 MiB (a tag of an older kind, a few bytes too many), comes as the
/// last, marked as a trailer.
/// @throws Mp4Error
std::vector<Mp4FileAtom> fileAtoms(const RandomAccessFile& file);

/// One atom of the uppermost level with all below it. @throws Mp4Error, also for one of more than 512 MiB
Mp4Box loadBox(const RandomAccessFile& file, const Mp4FileAtom& atom);

/// The one atom that `bytes` hold. @throws Mp4Error
Mp4Box parsedBox(QByteArrayView bytes);

/// The atoms that lie in `bytes` one behind the other, none of them opened. @throws Mp4Error
std::vector<Mp4Box> parsedLeaves(QByteArrayView bytes);

} // namespace zolt
