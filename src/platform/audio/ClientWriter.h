// Takes samples in the format that the writer's client chose, and brings them to a sink.
#pragma once

#include "platform/audio/PcmPacking.h"
#include "platform/audio/SampleSink.h"

namespace zolt {

class ClientWriter
{
public:
    /// @param sink must outlive this
    /// @param file the data as it lies in the file
    ClientWriter(SampleSink& sink, const AudioFormat& file);

    /// Chooses the format for all writing; not possible any more once samples were written.
    /// @return UnsupportedFormat for a format that is not linear or has another number of channels
    AudioStatus setFormat(const AudioFormat& client);

    /// True once the first samples, or the end, have fixed everything.
    bool hasBegun() const { return begun_; }

    /// Takes frames of the client format. After a failure nothing more is taken.
    AudioStatus write(const uint8_t* buffer, int64_t frames);

    /// Gives the sink what is still on its way and finishes the file.
    AudioStatus finish();

private:
    AudioStatus begin();
    AudioStatus writeSome(const uint8_t* buffer, int64_t frames);
    AudioStatus flush();

    SampleSink& sink_;
    const AudioFormat file_;
    AudioFormat client_;
    std::optional<PcmPacking> packing_;
    bool begun_ = false;
    bool straight_ = false; ///< the client's bytes are the file's
    AudioStatus failure_ = audioStatus::Ok;
    SampleConverter converter_;
    std::vector<uint8_t> unpacked_;
};

} // namespace zolt
