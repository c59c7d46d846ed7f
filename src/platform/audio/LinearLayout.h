// Where a file keeps its linear PCM. Such files are read byte for byte, with no demuxer between, so that data which
// merely looks like another format (a CD with DTS sound, say) comes out as it went in.
#pragma once

#include "platform/audio/AudioStatus.h"

class QFile;

namespace zolt {

/// The samples of a file as one stretch of bytes.
struct LinearLayout
{
    AudioFormat format;
    int64_t dataOffset = 0; ///< of the first sample, in bytes from the file's start
    int64_t frames = 0;     ///< frames that are really there, whatever the header claims
};

/// True if a file can have this rate and number of channels.
bool isPlausible(const AudioFormat& format);

/// Checks the format, and sets the number of frames: as many as `dataBytes` and the file's end leave room for.
/// @param layout  its format and dataOffset are read, its frames are set
AudioStatus limitToFile(LinearLayout& layout, int64_t dataBytes, int64_t fileSize);

/// Reads the header of a WAV file: plain, extensible or RF64.
/// @param file open for reading; its position changes
/// @return UnsupportedFormat for data other than integer and float PCM
AudioStatus readWaveLayout(QFile& file, LinearLayout& layout);

/// Reads the header of an AIFF or AIFC file. Arguments and result as for readWaveLayout.
AudioStatus readAiffLayout(QFile& file, LinearLayout& layout);

} // namespace zolt
