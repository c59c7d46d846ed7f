// Turns one file into an Apple Lossless one, in process; Shorten, FLAC and Monkey's Audio become a temporary WAV first.
#pragma once

#include "encode/StagedWav.h"
#include "engine/DeletingTask.h"

namespace zolt {

class EncodeALACTask : public DeletingTask<StagedWav>
{
public:
    /// @param outputPath  the output folder
    static std::shared_ptr<EncodeALACTask>
    initEncodeTaskWithQueueFileNameOutputPath(ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath);

    /// Both stages. A cancel leaves the temporary file behind; otherwise it goes as the user's setting says.
    void doEncodeCall();
    /// Writes the tool string and nothing else.
    void setEncoderTag() const;
    /// Copies the tags of a FLAC source, with the tool string.
    void handleFlacTags() const;
    /// Has the file marked as gapless.
    void optimizeFile(const QString& path) const;
    void processSHNToWavTaskOutput(const OptionalText& output) override;
    int stageCount() const override;

protected:
    void doStartTask() override;

private:
    EncodeALACTask();

    QString outFile_;
};

} // namespace zolt
