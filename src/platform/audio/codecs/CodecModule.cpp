// The one way into the module of the codec libraries.

#include "platform/audio/Codecs.h"
#include "platform/audio/codecs/CodecSource.h"
#include "platform/audio/codecs/M4aSink.h"
#include "platform/audio/codecs/Resampler.h"

namespace zolt {

namespace {

class CodecModule : public Codecs
{
public:
    AudioStatus openSource(QFile& file, Container container, std::unique_ptr<SampleSource>& source) const override
    {
        return openThroughCodecs(file, container, source);
    }

    AudioStatus makeSink(const QString& path, const AudioFormat& format,
                         std::unique_ptr<EncodingSink>& sink) const override
    {
        if (const auto status = M4aSink::check(format)) return status;
        sink = std::make_unique<M4aSink>(path, format);
        return audioStatus::Ok;
    }

    AudioStatus makeTransform(const SampleShape& from, const SampleShape& to, int channels,
                              std::unique_ptr<SampleTransform>& transform) const override
    {
        auto made = std::make_unique<Resampler>();
        const auto status = made->open(from, to, channels);
        if (!status) transform = std::move(made);
        return status;
    }
};

} // namespace

} // namespace zolt

extern "C" const zolt::Codecs* zoltCodecs()
{
    static const zolt::CodecModule module;
    return &module;
}
