#include "platform/audio/SampleSource.h"

#include "platform/audio/Codecs.h"
#include "platform/audio/LinearSource.h"

#include <QFile>

namespace zolt {

namespace {

using LayoutReader = AudioStatus (*)(QFile&, LinearLayout&);

AudioStatus openLinear(QFile& file, LayoutReader reader, std::unique_ptr<SampleSource>& source)
{
    LinearLayout layout;
    if (const auto status = reader(file, layout)) return status;
    source = std::make_unique<LinearSource>(file, layout);
    return audioStatus::Ok;
}

} // namespace

AudioStatus SampleSource::readBytes(uint8_t*, int64_t, int64_t&)
{
    return audioStatus::UnsupportedFormat;
}

AudioStatus openSampleSource(QFile& file, std::unique_ptr<SampleSource>& source)
{
    Container container = Container::Wave;
    if (const auto status = recogniseContainer(file, container)) return status;
    if (container == Container::Wave) return openLinear(file, readWaveLayout, source);
    if (container == Container::Aiff) return openLinear(file, readAiffLayout, source);
    const auto* library = codecs();
    return library ? library->openSource(file, container, source) : audioStatus::ModuleMissing;
}

} // namespace zolt
