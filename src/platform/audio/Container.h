// Which kind of file it is, told from its first bytes and never from its name.
#pragma once

#include "platform/audio/AudioStatus.h"

class QFile;

namespace zolt {

enum class Container { Wave, Aiff, Mp4, Caf, Mp3, Au };

/// Looks at the file's first bytes.
/// @param file open for reading; its position changes
/// @return UnsupportedFileType for anything else, FLAC, Wavpack, TTA, Shorten and Monkey's Audio included, also behind
///         an ID3v2 tag
AudioStatus recogniseContainer(QFile& file, Container& container);

/// The demuxer's name in the codec libraries.
const char* demuxerName(Container container);

} // namespace zolt
