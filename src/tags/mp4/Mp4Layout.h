// Where the parts of an optimised MP4 file go: the index ahead of the media data, no free space.
#pragma once

#include "tags/mp4/Mp4Parser.h"

namespace zolt {

/// A part of the old file that is taken over, and where it starts in the new one.
struct Mp4Piece
{
    Mp4FileAtom atom;
    quint64 target = 0;
};

/// Worked out once for an index of a given size; never changes.
class Mp4Layout
{
public:
    /// All parts keep their order but the index, which comes before the first media data. Free space goes, except
    /// behind the first fragment: fragments are found by their distances. @throws Mp4Error if fragments come first
    Mp4Layout(const std::vector<Mp4FileAtom>& atoms, quint64 indexSize);

    /// What is taken over, in both files' order; the index is not among it.
    const std::vector<Mp4Piece>& pieces() const { return pieces_; }
    quint64 indexTarget() const { return indexTarget_; }
    quint64 fileSize() const { return fileSize_; }

    /// The new place of a position in the old file. @throws Mp4Error if it lies in nothing that is taken over
    quint64 moved(quint64 position) const;

private:
    std::vector<Mp4Piece> pieces_;
    quint64 indexTarget_ = 0;
    quint64 fileSize_ = 0;
};

/// True for atoms that hold nothing: "free", "skip" and "wide".
bool isFreeSpace(quint32 type);

/// Takes free space out of all levels of the index.
void dropFreeSpace(Mp4Box& box);

} // namespace zolt
