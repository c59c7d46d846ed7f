// Encodes one Apple Lossless file with wavpack.
#pragma once

#include "encode/AppleLosslessEncoder.h"

namespace zolt {

class EncodeALACToWavpackTask : public AppleLosslessEncoder
{
public:
    /// @param level  "-f" or "-h"
    static std::shared_ptr<EncodeALACToWavpackTask>
    initEncodeTaskWithQueueFileNameOutputPathLevel(ZOLTTaskQueue* queue, const QString& fileName,
                                                   const QString& outputPath, const QString& level);

private:
    EncodeALACToWavpackTask();
};

} // namespace zolt
