// Has mac test a file.
#pragma once

#include "checksum/VerifyToolTask.h"

namespace zolt {

class VerifyApeTask : public VerifyToolTask
{
public:
    static std::shared_ptr<VerifyApeTask>
    initVerifyApeTaskWithResultsQueueLaunchPathArguments(const std::shared_ptr<ZOLTTaskResults>& results,
                                                         ZOLTTaskQueue* queue, const QString& launchPath,
                                                         const QStringList& arguments);

    /// Follows the progress and gathers the text.
    void processTaskOutput(const OptionalText& output) override;
    /// Reports the closing words. Kept: they go to the first slot of the report, whichever task of the set this is.
    void cleanup() override;

private:
    VerifyApeTask() : VerifyToolTask(ConsoleGrammar::apeTest) {}

    QString singleResult_; // all console text of this run; main thread
};

} // namespace zolt
