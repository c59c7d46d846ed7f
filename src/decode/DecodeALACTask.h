// Decodes one Apple Lossless file in process.
#pragma once

#include "encode/StagedWav.h"
#include "engine/DeletingTask.h"

namespace zolt {

class DecodeALACTask : public DeletingTask<StagedWav>
{
public:
    /// @param outputPath  the output folder
    /// @param format      its lower-case form is the output's extension; anything but "WAV" gives AIFF
    static std::shared_ptr<DecodeALACTask> initDecodeTaskWithQueueFileNameOutputPathFormat(ZOLTTaskQueue* queue,
                                                                                           const QString& fileName,
                                                                                           const QString& outputPath,
                                                                                           const QString& format);

    void doDecodeCall();
    /// Kept: nothing calls it, as the source goes behind the row's end.
    void cleanup() override;

protected:
    void doStartTask() override;

private:
    DecodeALACTask();

    QString format_;
};

} // namespace zolt
