// Where a writer's samples go: a linear file, or an encoder and a container.
#pragma once

#include "platform/audio/SampleConverter.h"

namespace zolt {

/// A file under construction, front to back. One thread at a time.
class SampleSink
{
public:
    virtual ~SampleSink() = default;

    /// Empties the file and makes ready for samples; called once, ahead of the first of them. `shape` is known then.
    virtual AudioStatus begin() = 0;
    /// The samples that `write` takes.
    virtual SampleShape shape() const = 0;
    virtual AudioStatus write(const SampleBlock& block) = 0;
    /// Takes samples that lie as in the file already.
    /// @return UnsupportedFormat for compressed files
    virtual AudioStatus writeBytes(const uint8_t* bytes, int64_t count) = 0;
    /// Brings the file to its final form and closes it. Called once; also after a failed write, to leave a file that
    /// can be read as far as it goes.
    virtual AudioStatus finish() = 0;
};

} // namespace zolt
