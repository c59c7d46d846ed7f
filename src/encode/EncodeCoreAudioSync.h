// In-process conversion: one file in, one file out, the caller blocked meanwhile.
#pragma once

#include "platform/audio/AudioFormat.h"

#include <QString>

#include <memory>

namespace zolt {

class AudioFileReader;
class AudioFileWriter;
class ZOLTTask;

/// Made, run once and dropped on a task's thread. It writes to that task's row, watches it
/// for a cancel and leaves failures with it. No state is shared: any number may run side by side.
class EncodeCoreAudioSync
{
public:
    /// @param task       the task to report to
    /// @param formatType the target: 'lpcm', 'alac' or 'aac '
    /// @param fileType   the container: 'WAVE', 'AIFF' or 'm4af'
    static std::shared_ptr<EncodeCoreAudioSync>
    initEncodeWithTaskFileNameOutputFileFormatTypeFileType(std::shared_ptr<ZOLTTask> task, const QString& fileName,
                                                           const QString& outputFile, uint32_t formatType,
                                                           uint32_t fileType);

    /// How the bit rate is held, one of bitRateMode; AAC alone.
    uint32_t mode() const { return mode_; }
    void setMode(uint32_t mode) { mode_ = mode; }
    /// 1 to 127; 0 leaves the encoder's own. AAC alone.
    uint32_t quality() const { return quality_; }
    void setQuality(uint32_t quality) { quality_ = quality; }
    /// Bits a second; 0 leaves the encoder's own. AAC alone.
    uint32_t bitrate() const { return bitrate_; }
    void setBitrate(uint32_t bitrate) { bitrate_ = bitrate; }

    /// Runs the conversion. An output that exists is overwritten; a failed or cancelled one stays, cut short. What
    /// can't be converted (a depth, a rate, a number of channels that the target does not have; compressed to
    /// compressed) is refused before the output is touched. All failures end in the task's `error` and results; nothing
    /// is thrown. A cancel is no failure.
    void doEncodeCall() noexcept;

    /// Hands mode, bit rate and quality to the output's encoder.
    /// @throws PlatformException if it does not take them
    void setAACSettings(AudioFileWriter& outFile);

private:
    EncodeCoreAudioSync() = default;

    struct Files;
    void convert(Files& files);
    void openInput(Files& files) const;
    void createOutput(Files& files);
    void copyFrames(Files& files) const;
    void showProgress(double progress) const;
    void report(const QString& reason) const;

    QString outFile_;
    QString fileName_;
    std::shared_ptr<ZOLTTask> task_;
    uint32_t formatType_ = 0;
    uint32_t fileType_ = 0;
    QString formatStringValue_;
    uint32_t bitrate_ = 0;
    uint32_t quality_ = 0;
    uint32_t mode_ = 0;
};

} // namespace zolt
