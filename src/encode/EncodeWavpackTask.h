// Encodes one file with wavpack.
#pragma once

#include "encode/TwoStageEncoder.h"

namespace zolt {

class EncodeWavpackTask : public TwoStageEncoder
{
public:
    /// @param level       "-f" or "-h"
    /// @param outputPath  the output folder
    static std::shared_ptr<EncodeWavpackTask> initEncodeTaskWithQueueFileNameLevelOutputPath(ZOLTTaskQueue* queue,
                                                                                             const QString& fileName,
                                                                                             const QString& level,
                                                                                             const QString& outputPath);

private:
    EncodeWavpackTask();
};

} // namespace zolt
