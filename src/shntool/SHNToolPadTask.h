// Has shntool pad a file to a sector boundary.
#pragma once

#include "shntool/SHNToolProgressTask.h"

namespace zolt {

class SHNToolPadTask : public SHNToolProgressTask
{
public:
    /// @param arguments  the file stands at index 7
    static std::shared_ptr<SHNToolPadTask> initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                     const QString& launchPath,
                                                                                     const QStringList& arguments);
    QString source() const override { return fileName_; }

private:
    SHNToolPadTask() : SHNToolProgressTask(ConsoleGrammar::shntoolPad) {}
};

} // namespace zolt
