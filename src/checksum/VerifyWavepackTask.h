// Has wvunpack test a file.
#pragma once

#include "checksum/VerifyToolTask.h"

namespace zolt {

class VerifyWavepackTask : public VerifyToolTask
{
public:
    static std::shared_ptr<VerifyWavepackTask>
    initVerifyWavepackTaskWithResultsQueueLaunchPathArguments(const std::shared_ptr<ZOLTTaskResults>& results,
                                                              ZOLTTaskQueue* queue, const QString& launchPath,
                                                              const QStringList& arguments);

protected:
    /// The row shows the file's name once more when the tool starts.
    void showStart() override { textField()->setStringValue(title()); }

private:
    VerifyWavepackTask() : VerifyToolTask(ConsoleGrammar::wavpackTest) {}
};

} // namespace zolt
