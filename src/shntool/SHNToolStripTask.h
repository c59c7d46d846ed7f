// Has shntool strip a file of what is no audio.
#pragma once

#include "shntool/SHNToolProgressTask.h"

namespace zolt {

class SHNToolStripTask : public SHNToolProgressTask
{
public:
    static std::shared_ptr<SHNToolStripTask> initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                       const QString& launchPath,
                                                                                       const QStringList& arguments);

private:
    SHNToolStripTask() : SHNToolProgressTask(ConsoleGrammar::shntoolStrip) {}
};

} // namespace zolt
