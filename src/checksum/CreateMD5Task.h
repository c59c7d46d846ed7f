// Writes an MD5 list over a set of files.
#pragma once

#include "engine/ZOLTThreadTask.h"

namespace zolt {

class FileList;

class CreateMD5Task : public ZOLTThreadTask
{
public:
    /// The name that a list gets where nobody chooses one.
    static inline const QString defaultName = QStringLiteral("md5sum.md5");

    /// @param files       the caller's own list object, read when the task starts
    /// @param outputPath  full path of the list to write
    static std::shared_ptr<CreateMD5Task> initWithQueueFilesOutputPath(ZOLTTaskQueue* queue,
                                                                       const std::shared_ptr<FileList>& files,
                                                                       const QString& outputPath);

    /// Takes its copy of the list. Kept: a tab empties its list behind addTask, so a task that has to wait for its turn
    /// finds nothing and writes a list of no files.
    void startTask() override;
    /// Digests each file and writes the list: LF at each line's end, names without folders, in the order given. A
    /// cancel is not looked at; a list that cannot be written is not told.
    void doCreateMd5(const QStringList& files);

    /// The whole of the work, with the end of the task.
    void doStartTask(const QStringList& files);

protected:
    void doStartTask() override { doStartTask(files_); }

private:
    CreateMD5Task();

    std::shared_ptr<FileList> fileNames_;
    QStringList files_; // the copy
    QString outputPath_;
};

} // namespace zolt
