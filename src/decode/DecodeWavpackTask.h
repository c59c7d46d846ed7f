// Decodes one Wavpack file with wvunpack.
#pragma once

#include "decode/ToolDecoder.h"

namespace zolt {

class DecodeWavpackTask : public ToolDecoder
{
public:
    /// @param outputPath  the output folder
    /// @param format      Constants::WAV or Constants::AIFF
    /// @throws AssertionException if AIFF is asked for and its temporary file cannot be made
    static std::shared_ptr<DecodeWavpackTask> initDecodeTaskWithQueueFileNameOutputPathFormat(ZOLTTaskQueue* queue,
                                                                                              const QString& fileName,
                                                                                              const QString& outputPath,
                                                                                              const QString& format);

private:
    DecodeWavpackTask();
};

} // namespace zolt
