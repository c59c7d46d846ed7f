// The writing half of the audio file service: WAV, AIFF, and M4A with Apple Lossless or AAC. Every operation gives a
// status and none throws. A writer belongs to one thread at a time; any number of writers may work side by side.
#pragma once

#include "platform/audio/EncoderSettings.h"

#include <memory>

namespace zolt {

/// An audio file that is being written. Dropping the object without `dispose` finishes a file that got samples, its
/// status unseen; a file that got none is left as it was found.
class AudioFileWriter
{
public:
    /// Creates a file. One that exists is emptied by the first samples or by `dispose`, so whatever is refused before
    /// them leaves it alone.
    /// @param fileType one of fileTypeId
    /// @param format   linear with the flags that the file type holds and 8, 16, 24 or 32 bits; or Apple Lossless of
    ///                 16, 20 or 24 bits, 20 being stored as 24; or AAC at a rate that its encoder has
    /// @param writer   set on success alone
    /// @return FileInUse if the service has the path open, UnsupportedFormat for data that would have to be altered
    static AudioStatus create(const QString& path, uint32_t fileType, const AudioFormat& format,
                              std::unique_ptr<AudioFileWriter>& writer);
    ~AudioFileWriter();

    /// Tells in which format `write` gets its samples: linear, with as many channels as the file. Depth, byte order
    /// and rate are converted. Without a choice a linear file takes what it holds.
    /// @return UnsupportedFormat for any other format; WrongState once samples were written
    AudioStatus setClientFormat(const AudioFormat& format);

    /// The converter inside a writer of compressed files.
    /// @param control owned by the writer
    /// @return InvalidProperty for a linear file
    AudioStatus encoderControl(EncoderControl*& control);

    /// Hands settings to the encoder.
    /// @return WrongState once samples were written
    AudioStatus setEncoderSettings(const EncoderSettings& settings);

    /// Stores frames of the client format behind those before.
    /// @return FileTooLarge where the kind of file ends, DiskFull, or another status; nothing more is written then
    AudioStatus write(const void* buffer, int64_t frames);

    /// Finishes and closes the file: the encoder's last packets, lengths, index. All else fails behind it.
    AudioStatus dispose();

private:
    struct State;
    explicit AudioFileWriter(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

} // namespace zolt
