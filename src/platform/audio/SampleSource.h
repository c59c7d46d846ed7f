// Where a reader's samples come from: the stretch of linear bytes of a file, or a demuxer and a decoder.
#pragma once

#include "platform/audio/AudioStatus.h"
#include "platform/audio/SampleBlock.h"

#include <memory>

class QFile;

namespace zolt {

/// A file's audio, front to back. One thread at a time.
class SampleSource
{
public:
    virtual ~SampleSource() = default;

    /// The format of the data in the file.
    const AudioFormat& format() const { return format_; }
    /// The number of frames of the whole file.
    virtual AudioStatus lengthInFrames(int64_t& frames) = 0;

    /// Bytes in the file's own linear format, straight into the caller's buffer.
    /// @param bytes room in the buffer, whole frames
    /// @param taken bytes filled in; less than asked for at the end alone
    /// @return UnsupportedFormat for a compressed file
    virtual AudioStatus readBytes(uint8_t* buffer, int64_t bytes, int64_t& taken);

    /// Makes ready for readBlock; `sampleFormat` is known then.
    virtual AudioStatus prepare() = 0;
    /// The next block of samples, in the codec libraries' sample format `sampleFormat()`; empty at the end.
    virtual AudioStatus readBlock(SampleBlock& block) = 0;
    /// An AVSampleFormat.
    virtual int sampleFormat() const = 0;

protected:
    AudioFormat format_;
};

/// Opens a file: recognises what it is and reads its header.
/// @param file open for reading; it must outlive the source
AudioStatus openSampleSource(QFile& file, std::unique_ptr<SampleSource>& source);

} // namespace zolt
