// Writes WAV and AIFF files.
#pragma once

#include "platform/audio/LinearHeader.h"
#include "platform/audio/PcmPacking.h"
#include "platform/audio/SampleSink.h"
#include "platform/files/NamedFile.h"

#include <QFile>

namespace zolt {

class LinearSink : public SampleSink
{
public:
    /// @param stored how the samples lie in the file
    LinearSink(const QString& path, const LinearHeader& header, const AudioFormat& stored);

    AudioStatus begin() override;
    SampleShape shape() const override;
    AudioStatus write(const SampleBlock& block) override;
    AudioStatus writeBytes(const uint8_t* bytes, int64_t count) override;
    AudioStatus finish() override;

private:
    AudioStatus append(const char* bytes, int64_t count);

    NamedFile file_;
    const LinearHeader header_;
    const AudioFormat format_;
    const std::optional<PcmPacking> packing_;
    int64_t headerBytes_ = 0;
    int64_t dataBytes_ = 0;
    std::vector<uint8_t> packed_;
};

} // namespace zolt
