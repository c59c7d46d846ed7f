// Has shntool trim silence from the ends of files.
#pragma once

#include "shntool/SHNToolProgressTask.h"

namespace zolt {

class SHNToolTrimTask : public SHNToolProgressTask
{
public:
    static std::shared_ptr<SHNToolTrimTask> initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                      const QString& launchPath,
                                                                                      const QStringList& arguments);
    /// What is under way: "Trimming" or "Scanning".
    const QString& operation() const { return operation_; }

protected:
    void lookAtHead(const QString& text) override;
    QString subject() const override { return operation_; }

private:
    SHNToolTrimTask() : SHNToolProgressTask(ConsoleGrammar::shntoolTrim) {}
    QString operation_ = QStringLiteral("Trimming");
};

} // namespace zolt
