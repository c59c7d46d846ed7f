// Encodes one file with mac.
#pragma once

#include "encode/TwoStageEncoder.h"

namespace zolt {

class EncodeApeTask : public TwoStageEncoder
{
public:
    /// @param level       the number behind "-c"
    /// @param outputPath  the output folder
    static std::shared_ptr<EncodeApeTask> initEncodeTaskWithQueueFileNameLevelOutputPath(ZOLTTaskQueue* queue,
                                                                                         const QString& fileName,
                                                                                         const QString& level,
                                                                                         const QString& outputPath);

private:
    EncodeApeTask();
};

} // namespace zolt
