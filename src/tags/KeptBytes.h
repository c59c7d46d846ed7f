// Bytes of files, kept for a while.
#pragma once

#include "tags/SoundRanges.h"

#include <QHash>

namespace zolt {

/// One file without a name in a folder that only the user can enter: gone with this object, or with the program however
/// it ends. Pictures that are equal are kept once. All operations @throw PlatformException. One thread at a time.
class KeptBytes
{
public:
    /// @param folder  made where it is not there
    explicit KeptBytes(const QString& folder);

    /// Keeps a range of the file. @return where it lies now, in order; what could not be kept whole takes no room
    QList<ByteRange> keep(const RandomAccessFile& file, ByteRange range);
    /// Writes what was kept. @return where it ends
    quint64 writeTo(RandomAccessFile& file, quint64 position, const QList<ByteRange>& kept) const;
    /// Bytes that are kept in all.
    quint64 size() const { return size_; }

private:
    ByteRange keepPiece(const QByteArray& piece);

    RandomAccessFile file_;
    quint64 size_ = 0;
    QMultiHash<size_t, ByteRange> pieces_; ///< by the bytes' hash
};

} // namespace zolt
