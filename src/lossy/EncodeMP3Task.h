// Encodes one file to MP3: shntool decodes it and pipes it into lame.
#pragma once

#include "encode/StagedWav.h"
#include "engine/DeletingTask.h"

namespace zolt {

class TagsObject;

class EncodeMP3Task : public DeletingTask<StagedWav>
{
public:
    /// @param fileName    full path of the source
    /// @param type        "CBR" or "VBR"
    /// @param outputPath  the output folder
    /// @param level       kilobits a second, or lame's quality
    static std::shared_ptr<EncodeMP3Task>
    initEncodeTaskWithQueueFileNameTypeOutputPathLevel(ZOLTTaskQueue* queue, const QString& fileName,
                                                       const QString& type, const QString& outputPath, int32_t level);

    int stageCount() const override;
    void processTaskOutput(const OptionalText& output) override;

    /// Tags of the source, as the two kinds that have some are read.
    std::shared_ptr<TagsObject> getFlacTags() const;
    /// @throws AssertionException for a source that is no M4A file
    std::shared_ptr<TagsObject> getM4ATags() const;
    /// Apple Lossless into a temporary WAV in the output folder. @return the temporary file
    QString convertALACToWav(const QString& source) { return convertToWav(source); }

    /// All stages up to the MP3 under its name; nothing that went wrong is looked at.
    void doEncodeCall();
    /// shntool's argument vector for an input: the source, or the WAV that was made of it.
    QStringList arguments(const QString& input) const;

protected:
    using DeletingTask::DeletingTask;
    void doStartTask() override;

private:
    void runTool(const QString& input);
    void moveToName(const QString& temporary) const;
    void copyTags(const TagsObject& tags);
    QString output() const { return outputFile(QStringLiteral("mp3")); }

    QString type_;
    int32_t level_ = 0;
};

} // namespace zolt
