#include "platform/audio/SampleConverter.h"

#include "platform/audio/Codecs.h"

namespace zolt {

AudioStatus SampleConverter::open(const SampleShape& from, const SampleShape& to, int channels)
{
    transform_.reset();
    if (from == to) return audioStatus::Ok;
    const auto* library = codecs();
    return library ? library->makeTransform(from, to, channels, transform_) : audioStatus::ModuleMissing;
}

AudioStatus SampleConverter::convert(const SampleBlock& in, SampleBlock& out)
{
    out = in;
    return transform_ && in.frames ? transform_->convert(in, out) : audioStatus::Ok;
}

AudioStatus SampleConverter::flush(SampleBlock& out)
{
    out = {};
    return transform_ ? transform_->flush(out) : audioStatus::Ok;
}

} // namespace zolt
