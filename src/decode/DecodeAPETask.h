// Decodes one Monkey's Audio file with mac.
#pragma once

#include "decode/ToolDecoder.h"

namespace zolt {

class DecodeAPETask : public ToolDecoder
{
public:
    /// @param outputPath  the output folder
    /// @param format      Constants::WAV or Constants::AIFF
    /// @throws AssertionException if AIFF is asked for and its temporary file cannot be made
    static std::shared_ptr<DecodeAPETask> initDecodeTaskWithQueueFileNameOutputPathFormat(ZOLTTaskQueue* queue,
                                                                                          const QString& fileName,
                                                                                          const QString& outputPath,
                                                                                          const QString& format);

private:
    DecodeAPETask();
};

} // namespace zolt
