// Decodes one TTA file with ttaenc, whose exit status nobody reads.
#pragma once

#include "decode/ToolDecoder.h"

namespace zolt {

class DecodeTTATask : public ToolDecoder
{
public:
    /// @param outputPath  the output folder
    /// @param format      Constants::WAV or Constants::AIFF
    /// @throws AssertionException if AIFF is asked for and its temporary file cannot be made
    static std::shared_ptr<DecodeTTATask> initDecodeTaskWithQueueFileNameOutputPathFormat(ZOLTTaskQueue* queue,
                                                                                          const QString& fileName,
                                                                                          const QString& outputPath,
                                                                                          const QString& format);

    /// The whole of the work; a cancel ends the tool at its next words.
    void doEncodeCall() { doDecodeCall(); }
    /// Lets go of the text of a good end and deletes the source if asked to: kept, after every end that was not
    /// cancelled, as no failure of the tool is seen here.
    void cleanup() override;

protected:
    void endSource() override { cleanup(); }

private:
    DecodeTTATask();
};

} // namespace zolt
