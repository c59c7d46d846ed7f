// What can be told to an encoder, and the way it is told: read the converter's settings, change them, hand them back.
#pragma once

#include "platform/audio/AudioStatus.h"

namespace zolt {

/// The settings of an encoder; 0 leaves the encoder's own rate or quality.
struct EncoderSettings
{
    uint32_t bitRate = 0; ///< bits a second
    uint32_t quality = 0; ///< 1 to 127
    uint32_t mode = 0;    ///< one of bitRateMode
};

/// How a bit rate is held. The encoders at hand know two ways: towards a rate, which serves the first three, and by
/// quality.
namespace bitRateMode {
constexpr uint32_t Constant = 0;            ///< the same rate all along
constexpr uint32_t Average = 1;             ///< the rate over the whole
constexpr uint32_t ConstrainedVariable = 2; ///< the rate over the whole, more for what needs it
constexpr uint32_t Variable = 3;            ///< by quality, whatever it takes
} // namespace bitRateMode

constexpr uint32_t highestQuality = 127;

namespace converterProperty {
constexpr uint32_t BitRate = fourCharCode("brat");
constexpr uint32_t Quality = fourCharCode("vbrq");
constexpr uint32_t BitRateMode = fourCharCode("acbf");
} // namespace converterProperty

/// The converter inside a writer of compressed files, as far as its settings go. A change acts once the settings are
/// read and handed to the writer.
class EncoderControl
{
public:
    explicit EncoderControl(uint32_t formatId) : formatId_(formatId) {}

    /// Changes a setting.
    /// @param property one of converterProperty
    /// @return InvalidProperty if this encoder has no such setting, InvalidValue for a value that it never has
    AudioStatus set(uint32_t property, uint32_t value);

    /// The settings as changed so far.
    AudioStatus settings(EncoderSettings& settings) const;

private:
    uint32_t formatId_;
    EncoderSettings settings_;
};

} // namespace zolt
