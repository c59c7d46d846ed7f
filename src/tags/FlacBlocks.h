// The blocks of metadata at the start of a FLAC file.
#pragma once

#include <QString>

#include <optional>

namespace zolt {

/// What the first block says of the audio.
struct FlacStream
{
    int sampleRate = 0; ///< frames a second
    int channels = 0;
};

/// Nothing for a file that is none. A look at the first bytes alone; any thread.
std::optional<FlacStream> flacStream(const QString& path);

/// Bytes of the blocks that a writer of tags makes anew: comments, pictures and padding, their headers included.
/// 0 for a file that is none. Any thread.
qint64 sizeOfFlacTags(const QString& path);

/// Where the blocks end and the sound begins; 0 for a file that is none, or whose blocks are cut. Any thread.
qint64 endOfFlacBlocks(const QString& path);

} // namespace zolt
