// Has shntool strip a file of what is no audio.
#pragma once

#include "shntool/SHNToolProgressTask.h"

namespace zolt {

class SHNToolStripTask : public SHNToolProgressTask
{
public:
    /// @param arguments  the file stands last
    static std::shared_ptr<SHNToolStripTask> initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                       const QString& launchPath,
                                                                                       const QStringList& arguments);
    QString source() const override { return fileName_; }

private:
    SHNToolStripTask() : SHNToolProgressTask(ConsoleGrammar::shntoolStrip) {}
};

} // namespace zolt
