// Encodes one Apple Lossless file with ttaenc; tags have no place there.
#pragma once

#include "encode/AppleLosslessEncoder.h"

namespace zolt {

class EncodeALACToTTATask : public AppleLosslessEncoder
{
public:
    /// @param outputPath  the output folder
    static std::shared_ptr<EncodeALACToTTATask>
    initEncodeTaskWithQueueFileNameOutputPath(ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath);

private:
    EncodeALACToTTATask();
};

} // namespace zolt
