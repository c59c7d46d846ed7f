#include "platform/audio/EncoderSettings.h"

namespace zolt {

AudioStatus EncoderControl::set(uint32_t property, uint32_t value)
{
    if (formatId_ != formatId::Aac) return audioStatus::InvalidProperty;
    switch (property) {
    case converterProperty::BitRate:
        if (value > INT32_MAX) return audioStatus::InvalidValue;
        settings_.bitRate = value;
        return audioStatus::Ok;
    case converterProperty::Quality:
        if (value > highestQuality) return audioStatus::InvalidValue;
        settings_.quality = value;
        return audioStatus::Ok;
    case converterProperty::BitRateMode:
        if (value > bitRateMode::Variable) return audioStatus::InvalidValue;
        settings_.mode = value;
        return audioStatus::Ok;
    default:
        return audioStatus::InvalidProperty;
    }
}

AudioStatus EncoderControl::settings(EncoderSettings& settings) const
{
    settings = settings_;
    return audioStatus::Ok;
}

} // namespace zolt
