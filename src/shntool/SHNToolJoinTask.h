// Has shntool join files into one.
#pragma once

#include "shntool/SHNToolProgressTask.h"

namespace zolt {

/// Kept: the file in work is shown alone, `fileName` stays empty.
class SHNToolJoinTask : public SHNToolProgressTask
{
public:
    static std::shared_ptr<SHNToolJoinTask> initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                      const QString& launchPath,
                                                                                      const QStringList& arguments);

protected:
    void lookAtHead(const QString& text) override;

private:
    SHNToolJoinTask() : SHNToolProgressTask(ConsoleGrammar::shntoolJoin) {}
};

} // namespace zolt
