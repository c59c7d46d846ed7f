// Encodes one Apple Lossless file with flac.
#pragma once

#include "encode/AppleLosslessEncoder.h"

namespace zolt {

class EncodeALACToFlacTask : public AppleLosslessEncoder
{
public:
    /// @param level  not used: flac runs at its own level here, and nothing but `verify` changes its arguments
    static std::shared_ptr<EncodeALACToFlacTask>
    initEncodeTaskWithQueueFileNameOutputPathLevelVerify(ZOLTTaskQueue* queue, const QString& fileName,
                                                         const QString& outputPath, int level, bool verify);

private:
    EncodeALACToFlacTask();
};

} // namespace zolt
