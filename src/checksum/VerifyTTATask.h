// Has ttaenc test a file.
#pragma once

#include "checksum/VerifyToolTask.h"

namespace zolt {

class VerifyTTATask : public VerifyToolTask
{
public:
    static std::shared_ptr<VerifyTTATask>
    initVerifyTTATaskWithResultsQueueLaunchPathArguments(const std::shared_ptr<ZOLTTaskResults>& results,
                                                         ZOLTTaskQueue* queue, const QString& launchPath,
                                                         const QStringList& arguments);

protected:
    /// The row shows the file's name once more when the tool starts.
    void showStart() override { textField()->setStringValue(title()); }

private:
    VerifyTTATask() : VerifyToolTask(ConsoleGrammar::ttaTest) {}
};

} // namespace zolt
