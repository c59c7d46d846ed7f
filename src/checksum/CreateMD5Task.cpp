#include "checksum/CreateMD5Task.h"

#include "checksum/ChecksumList.h"
#include "checksum/MD5List.h"
#include "shell/FileList.h"

namespace zolt {

using namespace Qt::StringLiterals;

CreateMD5Task::CreateMD5Task()
    : ZOLTThreadTask({.waits = ThreadEnd::Waits::No, .readsStatus = false, .drops = ThreadEnd::Drops::AheadOfRow})
{
}

std::shared_ptr<CreateMD5Task> CreateMD5Task::initWithQueueFilesOutputPath(ZOLTTaskQueue* queue,
                                                                           const std::shared_ptr<FileList>& files,
                                                                           const QString& outputPath)
{
    std::shared_ptr<CreateMD5Task> task(new CreateMD5Task);
    task->setUpThreadTask(queue);
    task->fileNames_ = files;
    task->outputPath_ = outputPath;
    task->showTitle(u"Create MD5 checksum file"_s);
    return task;
}

void CreateMD5Task::startTask()
{
    files_ = fileNames_->copy();
    ZOLTThreadTask::startTask();
}

void CreateMD5Task::doStartTask(const QStringList& files)
{
    beginRow();
    topTextField()->setStringValue(u"Creating MD5 checksum file"_s);
    doCreateMd5(files);
    stopTask(nullptr);
}

void CreateMD5Task::doCreateMd5(const QStringList& files)
{
    checksumList::write(outputPath_, md5List(files, *this));
}

} // namespace zolt
