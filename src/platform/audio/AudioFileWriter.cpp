#include "platform/audio/AudioFileWriter.h"

#include "platform/audio/ClientWriter.h"
#include "platform/audio/Codecs.h"
#include "platform/audio/LinearSink.h"
#include "platform/audio/OpenFiles.h"
#include "platform/files/Files.h"

#include <QFileInfo>

namespace zolt {

struct AudioFileWriter::State
{
    State(const QString& where, const AudioFormat& fileFormat)
        : path(where), format(fileFormat), control(fileFormat.formatId)
    {
    }

    /// Chooses what writes; touches no file.
    AudioStatus makeSink(uint32_t fileType, const AudioFormat& wanted);

    QString path;
    AudioFormat format; ///< the data as it lies in the file
    EncoderControl control;
    std::unique_ptr<OpenFileMark> mark;
    std::unique_ptr<SampleSink> sink;
    EncodingSink* encoding = nullptr; ///< the sink, if it encodes
    std::optional<ClientWriter> client;
};

AudioFileWriter::AudioFileWriter(std::unique_ptr<State> state) : state_(std::move(state)) {}

AudioFileWriter::~AudioFileWriter()
{
    if (!state_) return;
    if (state_->client->hasBegun())
        dispose();
    else if (state_->mark->hasMade())
        removeItem(realPath(state_->path));
}

AudioStatus AudioFileWriter::State::makeSink(uint32_t fileType, const AudioFormat& wanted)
{
    if (const auto* header = linearHeaderFor(fileType, wanted)) {
        sink = std::make_unique<LinearSink>(path, *header, format);
        return audioStatus::Ok;
    }
    if (fileType != fileTypeId::M4a || wanted.isLinear()) return audioStatus::UnsupportedFormat;
    const auto* library = codecs();
    std::unique_ptr<EncodingSink> made;
    const auto status = library ? library->makeSink(path, wanted, made) : audioStatus::ModuleMissing;
    encoding = made.get();
    sink = std::move(made);
    return status;
}

AudioStatus AudioFileWriter::create(const QString& path, uint32_t fileType, const AudioFormat& format,
                                    std::unique_ptr<AudioFileWriter>& writer)
{
    return audioGuarded([&] {
        auto state = std::make_unique<State>(path, storedFormat(fileType, format));
        if (const auto status = state->makeSink(fileType, format)) return status;
        if (const auto status = OpenFileMark::claim(path, state->mark)) return status;
        state->client.emplace(*state->sink, state->format);
        writer.reset(new AudioFileWriter(std::move(state)));
        return audioStatus::Ok;
    });
}

AudioStatus AudioFileWriter::setClientFormat(const AudioFormat& format)
{
    if (!state_) return audioStatus::WrongState;
    return audioGuarded([&] { return state_->client->setFormat(format); });
}

AudioStatus AudioFileWriter::encoderControl(EncoderControl*& control)
{
    if (!state_) return audioStatus::WrongState;
    if (!state_->encoding) return audioStatus::InvalidProperty;
    control = &state_->control;
    return audioStatus::Ok;
}

AudioStatus AudioFileWriter::setEncoderSettings(const EncoderSettings& settings)
{
    if (!state_ || state_->client->hasBegun()) return audioStatus::WrongState;
    if (!state_->encoding) return audioStatus::InvalidProperty;
    state_->encoding->setSettings(settings);
    return audioStatus::Ok;
}

AudioStatus AudioFileWriter::write(const void* buffer, int64_t frames)
{
    if (!state_) return audioStatus::WrongState;
    return audioGuarded([&] { return state_->client->write(static_cast<const uint8_t*>(buffer), frames); });
}

AudioStatus AudioFileWriter::dispose()
{
    if (!state_) return audioStatus::WrongState;
    const auto state = std::move(state_);
    return audioGuarded([&] { return state->client->finish(); });
}

} // namespace zolt
