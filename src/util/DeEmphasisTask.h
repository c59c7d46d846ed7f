// Takes the emphasis of an old disc off one file with sox.
#pragma once

#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

class DeEmphasisTask : public ZOLTAsyncNSTask
{
public:
    /// @param arguments  sox's argument vector; the source stands at index 1
    /// @param results    of the whole command
    static std::shared_ptr<DeEmphasisTask>
    initAsyncTaskWithQueueLaunchPathArgumentsWithResults(ZOLTTaskQueue* queue, const QString& launchPath,
                                                         const QStringList& arguments,
                                                         const std::shared_ptr<ZOLTTaskResults>& results);

    void processTaskOutput(const OptionalText& output) override;
    /// What the tool had to say goes to the results, and what is wrong with the output beside it.
    void finalCleanup() override;

private:
    DeEmphasisTask() = default;
    void showProgress(const QString& text);
    void lookAtOutput(ZOLTTaskResults& results) const;

    QString fileName_;
    QString totalOutput_;
};

} // namespace zolt
