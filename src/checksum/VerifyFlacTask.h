// Has flac test a file.
#pragma once

#include "checksum/VerifyToolTask.h"

namespace zolt {

class VerifyFlacTask : public VerifyToolTask
{
public:
    static std::shared_ptr<VerifyFlacTask>
    initVerifyFlacTaskWithResultsQueueLaunchPathArguments(const std::shared_ptr<ZOLTTaskResults>& results,
                                                          ZOLTTaskQueue* queue, const QString& launchPath,
                                                          const QStringList& arguments);

    /// A cancelled test says so in its text. Kept: a cancel ends a running task twice, so the report says it more
    /// often.
    void stopTask(Sender sender) override;
    /// Follows the progress and gathers the text; the row shows the file's name, whatever the title is.
    void processTaskOutput(const OptionalText& output) override;
    /// Reports the closing words.
    void cleanup() override;

protected:
    void showStart() override { topTextField()->setStringValue(QStringLiteral("Verifying")); }

private:
    VerifyFlacTask() : VerifyToolTask(ConsoleGrammar::flacTest) {}

    QString singleResult_; // all console text of this run; main thread
    QString fileName_;     // without its folder
};

} // namespace zolt
