// Which bytes of a file are sound, which no writer of tags changes or makes longer or shorter.
#pragma once

#include "tags/mp4/RandomAccessFile.h"

#include <QList>

namespace zolt {

struct ByteRange
{
    quint64 start = 0;
    quint64 length = 0;

    quint64 end() const { return start + length; }
    bool operator==(const ByteRange&) const = default;
};

/// The sound of a file of a kind that the tags tab writes, in order: one range, of M4A files one for each atom of media
/// data. All else is tags, or so little that it may be taken for them. Empty where it cannot be told. Any thread.
QList<ByteRange> soundRanges(const RandomAccessFile& file);

/// Where ranges of these lengths lie in the file now that its tags are others; empty where they cannot be told.
QList<ByteRange> movedRanges(const RandomAccessFile& file, const QList<ByteRange>& before);

} // namespace zolt
