// One MP4 file: where its atoms lie, and its index as a tree that can be changed.
#pragma once

#include "tags/mp4/Mp4Parser.h"
#include "tags/mp4/RandomAccessFile.h"

namespace zolt {

/// An open file. Holds the descriptor; nothing reaches the file before an operation here is told to write.
class Mp4Document
{
public:
    enum class Access { Read, Modify };

    /// Opens the file and reads its index. @throws Mp4Error for a file that does not open, is no MP4 file,
    /// or is broken; whatever gets through has whole atoms with sizes that add up
    Mp4Document(const QString& path, Access access);

    const RandomAccessFile& file() const { return file_; }
    const std::vector<Mp4FileAtom>& atoms() const { return atoms_; }
    const Mp4FileAtom& indexAtom() const { return atoms_.at(indexPosition_); }

    /// The atom "moov".
    Mp4Box& index() { return index_; }
    const Mp4Box& index() const { return index_; }

    /// True if the media data comes in fragments, each with an index of its own.
    bool isFragmented() const;

    /// Writes the changed index behind the last atom and turns the old one
    /// into free space, so that no media data moves and the file is whole at every moment. For files that cannot be
    /// written anew; no more operations after it.
    /// @throws Mp4Error, with the file as it was: for a fragmented file, whose index must come first, and for one with
    /// a trailer, behind which nobody would look for it
    void storeIndexInPlace();

private:
    void closeLastAtom();

    RandomAccessFile file_;
    const std::vector<Mp4FileAtom> atoms_;
    const size_t indexPosition_;
    Mp4Box index_;
};

/// True for the atoms that belong to fragments and lie by distances from each other: none of them may move alone.
bool startsFragments(quint32 type);

} // namespace zolt
