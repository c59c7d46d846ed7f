// Encodes one Apple Lossless file with mac.
#pragma once

#include "encode/AppleLosslessEncoder.h"

namespace zolt {

class EncodeALACToAPETask : public AppleLosslessEncoder
{
public:
    /// @param level  the number behind "-c"
    static std::shared_ptr<EncodeALACToAPETask>
    initEncodeTaskWithQueueFileNameOutputPathLevel(ZOLTTaskQueue* queue, const QString& fileName,
                                                   const QString& outputPath, const QString& level);

private:
    EncodeALACToAPETask();
};

} // namespace zolt
