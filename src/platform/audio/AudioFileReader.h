// The reading half of the audio file service: WAV (extensible and RF64 too), AIFF and AIFC, M4A and MP4 with Apple
// Lossless or AAC, CAF, MP3 and AU. Every operation gives a status and none throws. A reader belongs to one thread at a
// time; any number of readers may work side by side.
#pragma once

#include "platform/audio/AudioStatus.h"

#include <memory>

namespace zolt {

/// An audio file that is open for reading. Dropping the object closes the file.
class AudioFileReader
{
public:
    /// Opens an existing file and reads its header. As long as it is open, no writer of this service takes its path.
    /// @param reader set on success alone
    /// @return NotFound, NotPermitted, UnsupportedFileType, UnsupportedFormat or InvalidFile
    static AudioStatus open(const QString& path, std::unique_ptr<AudioFileReader>& reader);
    ~AudioFileReader();

    /// The format of the data in the file.
    AudioStatus dataFormat(AudioFormat& format) const;

    /// The number of frames in the file, at the file's own rate. Files that don't state it (MP3) are walked through.
    AudioStatus lengthInFrames(int64_t& frames) const;

    /// Chooses the format in which `read` gives samples: linear, with as many channels as the file. Depth, byte order
    /// and rate are converted. Without a choice a linear file is read as it stands.
    /// @return UnsupportedFormat for any other format, above all for compressed ones
    AudioStatus setClientFormat(const AudioFormat& format);

    /// Reads on from where the last call ended, straight into the caller's memory.
    /// @param buffer room for `frames` frames of the client format
    /// @param taken  frames filled in: fewer than asked for at the end alone, 0 behind it; set with a failure too
    /// @return InvalidFile for damaged data, and for lossless data that ends ahead of the stated length
    AudioStatus read(void* buffer, int64_t frames, int64_t& taken);

private:
    struct State;
    explicit AudioFileReader(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

} // namespace zolt
