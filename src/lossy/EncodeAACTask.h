// Encodes one file to AAC in process; FLAC and Shorten sources are decoded by their tools first.
#pragma once

#include "encode/StagedWav.h"
#include "engine/DeletingTask.h"

namespace zolt {

class EncodeCoreAudioSync;
class TagsObject;

class EncodeAACTask : public DeletingTask<StagedWav>
{
public:
    /// @param fileName    full path of the source
    /// @param type        "CBR", "ABR", "VBR Constrained" or "VBR"; any other leaves the encoder its own settings
    /// @param outputPath  the output folder
    /// @param level       kilobits a second, or for "VBR" the encoder's quality; 0 leaves the encoder its own
    static std::shared_ptr<EncodeAACTask>
    initEncodeTaskWithQueueFileNameTypeOutputPathLevel(ZOLTTaskQueue* queue, const QString& fileName,
                                                       const QString& type, const QString& outputPath, int32_t level);

    int stageCount() const override;

    /// The file that is made.
    const QString& outFile() const { return outFile_; }
    /// What the file's tool string says of mode and level; absent for a type that is not known.
    OptionalText getEncoderSettingsForTag() const;

    /// Hands mode and rate or quality to the encoder; nothing for a type that is not known.
    void applySettings(EncodeCoreAudioSync& encoder) const;
    /// The decoding, where the source needs one, and the encoding. No temporary file stays.
    void doEncodeCall();
    /// Writes the source's tags and the settings into the output. @throws PlatformException if it can't be tagged
    void handleFlacTags() const;
    /// Writes the settings alone. @throws as handleFlacTags
    void setEncoderTag() const;
    /// Marks the output as gapless. @throws PlatformException if the tool cannot be started
    void optimizeFile() const;

protected:
    using DeletingTask::DeletingTask;
    void doStartTask() override;

private:
    QString decoded();
    void finishFile() const;
    void writeTags(const TagsObject& tags) const;

    QString type_;
    int32_t level_ = 0;
    QString outFile_;
};

} // namespace zolt
