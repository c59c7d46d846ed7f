#include "encode/AudioInput.h"

#include "encode/StatusFailure.h"

namespace zolt {

using namespace Qt::StringLiterals;

std::unique_ptr<AudioFileReader> openedForReading(const QString& path, AudioFormat& format)
{
    std::unique_ptr<AudioFileReader> reader;
    requireStatus(AudioFileReader::open(path, reader), u"ExtAudioFileOpenURL failed"_s);
    requireStatus(reader->dataFormat(format),
                  u"input ExtAudioFileGetProperty kExtAudioFileProperty_FileDataFormat failed"_s);
    return reader;
}

int64_t framesOf(const AudioFileReader& reader)
{
    int64_t frames = 0;
    requireStatus(reader.lengthInFrames(frames),
                  u"input ExtAudioFileGetProperty kExtAudioFileProperty_FileLengthFrames failed"_s);
    return frames;
}

} // namespace zolt
