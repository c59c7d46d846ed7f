// The tables of an MP4 file that hold positions in the file, and what happens to them when its parts move.
#pragma once

#include "tags/mp4/Mp4Box.h"

#include <functional>

namespace zolt {

/// Gives the new position of what lay at an old one. @throws Mp4Error for a position that is nowhere in the new file
using Relocation = std::function<quint64(quint64)>;

/// Throws unless every table of the index has the entries that it counts, and all positions in the file stand in
/// tables that are known here. @throws Mp4Error for compressed indexes, items, encrypted samples and media elsewhere
void checkIndexTables(const Mp4Box& index);

/// Throws if the atom refers to parts of the file in a way that is not known here. @throws Mp4Error
void refuseForeignPositions(const Mp4Box& box);

/// Makes all tables of chunk offsets wide: 64 bits for each.
void widenChunkOffsets(Mp4Box& index);

/// Moves all chunk offsets. @throws Mp4Error, also where a narrow table cannot hold the new position
void relocateChunks(Mp4Box& index, const Relocation& moved);

/// Moves the base positions in one fragment ("moof"). Its size stays. @throws Mp4Error
void relocateFragment(Mp4Box& fragment, const Relocation& moved);

/// Moves the positions in the table of fragments ("mfra"). Its size stays. @throws Mp4Error
void relocateFragmentTable(Mp4Box& table, const Relocation& moved);

} // namespace zolt
