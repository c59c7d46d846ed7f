// Collects the hash lines that shntool prints into an ST5 list.
#pragma once

#include "engine/ZOLTAsyncNSTaskFileOutputRedirection.h"

namespace zolt {

class CreateST5Task : public ZOLTAsyncNSTaskFileOutputRedirection
{
public:
    /// The name that a list gets where nobody chooses one.
    static inline const QString defaultName = QStringLiteral("checksum.st5");

    /// @param fileName   the list to write
    /// @param arguments  those of "shntool hash -m"
    static std::shared_ptr<CreateST5Task> initWithFileNameQueueLaunchPathArguments(const QString& fileName,
                                                                                   ZOLTTaskQueue* queue,
                                                                                   const QString& launchPath,
                                                                                   const QStringList& arguments);

    /// Puts the list's first line into the results, then launches the tool.
    void startTask() override;
    /// Keeps the hash lines of a piece, each behind a line end. Kept: a line that comes in two pieces is read as two.
    void processTaskOutput(const OptionalText& output) override;

private:
    CreateST5Task() = default;
    void readLine(const QString& line, const QString& piece);
    void keep(const QString& line);

    bool keptLine_ = false; // main thread
};

} // namespace zolt
