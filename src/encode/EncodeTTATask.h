// Encodes one file with ttaenc.
#pragma once

#include "encode/TwoStageEncoder.h"

namespace zolt {

class EncodeTTATask : public TwoStageEncoder
{
public:
    /// @param outputPath  the output folder
    static std::shared_ptr<EncodeTTATask>
    initEncodeTaskWithQueueFileNameOutputPath(ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath);

private:
    EncodeTTATask();
};

} // namespace zolt
