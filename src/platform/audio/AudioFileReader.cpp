#include "platform/audio/AudioFileReader.h"

#include "platform/audio/ClientReader.h"
#include "platform/audio/OpenFiles.h"
#include "platform/audio/SampleSource.h"
#include "platform/files/Files.h"
#include "platform/files/NamedFile.h"

#include <cerrno>

namespace zolt {

struct AudioFileReader::State
{
    explicit State(const QString& path) : file(path) {}

    NamedFile file;
    std::optional<OpenFileMark> mark;
    std::unique_ptr<SampleSource> source;
    std::optional<ClientReader> client;
};

namespace {

AudioStatus openFile(QFile& file)
{
    if (!exists(file.fileName())) return audioStatus::NotFound;
    // A pipe would make the opening wait for its writer.
    if (!isRegularFile(file.fileName())) return audioStatus::UnsupportedFileType;
    errno = 0;
    if (file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return audioStatus::Ok;
    return audioStatusFromErrno(errno);
}

} // namespace

AudioFileReader::AudioFileReader(std::unique_ptr<State> state) : state_(std::move(state)) {}

AudioFileReader::~AudioFileReader() = default;

AudioStatus AudioFileReader::open(const QString& path, std::unique_ptr<AudioFileReader>& reader)
{
    return audioGuarded([&] {
        auto state = std::make_unique<State>(path);
        if (const auto status = openFile(state->file)) return status;
        state->mark.emplace(path);
        if (const auto status = openSampleSource(state->file, state->source)) return status;
        state->client.emplace(*state->source);
        if (state->source->format().isLinear()) state->client->setFormat(state->source->format());
        reader.reset(new AudioFileReader(std::move(state)));
        return audioStatus::Ok;
    });
}

AudioStatus AudioFileReader::dataFormat(AudioFormat& format) const
{
    format = state_->source->format();
    return audioStatus::Ok;
}

AudioStatus AudioFileReader::lengthInFrames(int64_t& frames) const
{
    return audioGuarded([&] { return state_->source->lengthInFrames(frames); });
}

AudioStatus AudioFileReader::setClientFormat(const AudioFormat& format)
{
    return audioGuarded([&] { return state_->client->setFormat(format); });
}

AudioStatus AudioFileReader::read(void* buffer, int64_t frames, int64_t& taken)
{
    taken = 0;
    return audioGuarded([&] { return state_->client->read(static_cast<uint8_t*>(buffer), frames, taken); });
}

} // namespace zolt
