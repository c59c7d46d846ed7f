// Gives a source's samples in the format that the reader's client asked for.
#pragma once

#include "platform/audio/PcmPacking.h"
#include "platform/audio/SampleConverter.h"
#include "platform/audio/SampleSource.h"

namespace zolt {

class ClientReader
{
public:
    /// @param source must outlive this
    explicit ClientReader(SampleSource& source) : source_(source) {}

    /// Chooses the format for all reading from here on.
    /// @return UnsupportedFormat for a format that is not linear or has another number of channels
    AudioStatus setFormat(const AudioFormat& client);

    /// Fills the buffer.
    /// @param frames room in the buffer, in frames of the client format
    /// @param taken  frames filled in; fewer than asked for at the end alone, 0 behind it
    AudioStatus read(uint8_t* buffer, int64_t frames, int64_t& taken);

private:
    AudioStatus refill();
    void moveOut(uint8_t* buffer, int64_t frames);

    SampleSource& source_;
    AudioFormat client_;
    std::optional<PcmPacking> packing_;
    bool straight_ = false; ///< the client's bytes are the file's
    SampleConverter converter_;
    SampleBlock pending_;
    int64_t pendingAt_ = 0; ///< frames of pending_ given already
    bool ended_ = false;
};

} // namespace zolt
