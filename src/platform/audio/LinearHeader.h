// The headers of the linear files that the service writes. They are our own: some tools refuse the extensible form of
// WAV, which others write for every depth but 8 and 16 bits.
#pragma once

#include "platform/audio/AudioFormat.h"

#include <QByteArray>

namespace zolt {

/// One kind of linear file.
struct LinearHeader
{
    /// The bytes ahead of the samples, for this many bytes of samples. Their length depends on the format alone.
    QByteArray (*build)(const AudioFormat& format, int64_t dataBytes);
    /// The longest file of the kind, header and padding included.
    int64_t longestFile;
};

/// How files of the type are written.
/// @param fileType one of fileTypeId
/// @param format   the data in the file
/// @return nothing if files of that type can't hold such data, or if the description contradicts itself
const LinearHeader* linearHeaderFor(uint32_t fileType, const AudioFormat& format);

/// How the samples really lie in the file: a WAV file's samples of 8 bits are unsigned, whatever was asked for.
AudioFormat storedFormat(uint32_t fileType, const AudioFormat& format);

} // namespace zolt
