// Where the samples of a compressed file go.
#pragma once

#include "platform/audio/EncoderSettings.h"
#include "platform/audio/SampleSink.h"

namespace zolt {

class EncodingSink : public SampleSink
{
public:
    /// Settings for the encoder, ahead of `begin`.
    virtual void setSettings(const EncoderSettings& settings) = 0;
};

} // namespace zolt
