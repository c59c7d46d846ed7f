// A tool whose text is saved to a file when it ends.
#pragma once

#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

class ZOLTAsyncNSTaskFileOutputRedirection : public ZOLTAsyncNSTask
{
public:
    /// @param fileName  the file to write
    static std::shared_ptr<ZOLTAsyncNSTaskFileOutputRedirection>
    initWithFileNameQueueLaunchPathArguments(const QString& fileName, ZOLTTaskQueue* queue, const QString& launchPath,
                                             const QStringList& arguments);

    /// Shown in the status line at the start; none by default.
    OptionalText subTitle() const { return get(subTitle_); }
    void setSubTitle(const OptionalText& subTitle) { put(subTitle_, subTitle); }

    /// Takes the text, ends the task with no text of its own, and writes the file whatever the outcome, after the
    /// report to the queue. A second end finds no results and writes nothing. Write errors are ignored.
    void stopTask(Sender sender) override;

protected:
    ZOLTAsyncNSTaskFileOutputRedirection() = default;
    void setUpRedirection(const QString& fileName, ZOLTTaskQueue* queue, const QString& launchPath,
                          const QStringList& arguments);

    void showStart() override;
    /// The reason is shown, not saved.
    void finishAfterFault() override { ZOLTAsyncNSTask::stopTask(nullptr); }

private:
    QString fileName_;
    OptionalText subTitle_;
};

} // namespace zolt
