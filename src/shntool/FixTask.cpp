#include "shntool/FixTask.h"

#include "checksum/ChecksumList.h"
#include "checksum/CreateMD5Task.h"
#include "checksum/MD5List.h"
#include "platform/text/Scanner.h"
#include "regex/RegularExpressions.h"
#include "shell/BaseTab.h"
#include "shell/Constants.h"
#include "shntool/DiscKey.h"

namespace zolt {

using namespace Qt::StringLiterals;

FixTask::FixTask() : DeletingTask({.drops = ThreadEnd::Drops::Never}) {}

std::shared_ptr<FixTask> FixTask::initFixTaskWithQueueFileNamesOutputFormatOutputPathMd5OptionFlacLevelTab(
    ZOLTTaskQueue* queue, const std::shared_ptr<FileList>& fileNames, const QString& outputFormat,
    const QString& outputPath, const QString& md5Option, int flacLevel, BaseTab* tab)
{
    std::shared_ptr<FixTask> task(new FixTask);
    task->setUpThreadTask(queue);
    task->fileNames_ = fileNames;
    task->outputFormat_ = outputFormat;
    task->outputPath_ = outputPath;
    task->md5Option_ = md5Option;
    task->flacLevel_ = flacLevel;
    task->fixTab_ = tab;
    int place = 0;
    for (const QString& file : fileNames->copy())
        task->fileNameDictionary_[path::deletingExtension(path::lastComponent(file))] = QString::number(++place);
    task->showTitle(u"Fixing"_s);
    return task;
}

QString FixTask::stripPercent(const QString& text)
{
    return stringByReplacingOccurrencesOfRegexWithString(text, u"[0-9]+%"_s, u""_s);
}

void FixTask::showFile(const QString& text)
{
    Scanner scanner(text);
    QString name;
    scanner.scanUpTo(u"["_s);
    scanner.scanUpTo(u"] ("_s, &name);
    fileName_ = path::deletingExtension(path::lastComponent(name));
    const QString place = fileNameDictionary_.value(fileName_, u"(null)"_s); // kept: a name that is not in the set
    textField()->setStringValue(u"%1 (%2 of %3)"_s.arg(fileName_, place, QString::number(fileNames_->count())));
}

void FixTask::processTaskOutput(const OptionalText& output)
{
    const QString text = trimmed(textOrEmpty(output), CharacterSet::Backspace);
    totalOutput_ += stripPercent(text);
    if (text.contains(u"Fixing ["_s) || text.contains(u") --> ["_s)) showFile(text);
    if (!text.contains(u'%')) return;
    const double percent = doubleValue(splitAt(text, u"%"_s).first());
    topTextField()->setStringValue(u"Fixing: "_s + fixedSix(percent) + u'%');
    progressIndicator()->setDoubleValue(percent);
}

QStringList FixTask::formatArguments() const
{
    // The tab gives lower case, so its slider reaches no tool.
    if (outputFormat_ != Constants::FLAC) return {u"-o"_s, outputFormat_};
    return {u"-o"_s, u"cust"_s, u"ext=flac"_s, u"{"_s, u"flac"_s, u"-s"_s, u"-%1"_s.arg(flacLevel_),
            u"-o"_s, u"%f"_s,   u"-"_s,        u"}"_s};
}

void FixTask::doFixCall()
{
    const QStringList files = fileNames_->copy();
    const QStringList options{u"fix"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-k"_s, u"-d"_s, outputPath_};
    runTool({.tool = u"shntool"_s,
             .arguments = options + formatArguments() + files,
             .directory = path::deletingLastComponent(files.value(0)),
             .stopAt = ToolCall::StopAt::Nothing});
}

QString FixTask::target(const QString& file) const
{
    return path::inFolderWithExtension(file, outputPath_, outputFormat_.toLower());
}

void FixTask::doMd5CallFiles(const QString& listName, const QStringList& files)
{
    QStringList outputs;
    for (const QString& file : files)
        outputs += target(file);
    checksumList::write(path::appendingComponent(outputPath_, listName), md5List(outputs, *this));
}

void FixTask::handleMD5()
{
    const QStringList files = fileNames_->copy();
    if (files.isEmpty()) return;
    if (md5Option_ == oneMD5) doMd5CallFiles(CreateMD5Task::defaultName, files);
    if (md5Option_ != MD5ByDisc) return;
    for (const DiscFiles& disc : filesByDisc(files))
        doMd5CallFiles(u"Disc"_s + disc.key + u".md5"_s, disc.files);
}

void FixTask::startTask()
{
    cancelButton()->setEnabled(true);
    DeletingTask::startTask();
}

void FixTask::letGoOfList()
{
    worksOnList_ = false;
    fixTab_->tableView->reloadData(); // whoever shows the list asks again what may be done with it
}

void FixTask::stopTask(Sender sender)
{
    DeletingTask::stopTask(sender);
    if (hasNeverBegun()) letGoOfList();
}

void FixTask::finishAfterFault()
{
    DeletingTask::finishAfterFault();
    letGoOfList();
}

void FixTask::doStartTask()
{
    beginRow();
    doFixCall();
    topTextField()->setStringValue(u"Creating MD5"_s);
    handleMD5();
    appendResults(totalOutput_);
    stopTask(nullptr);
    for (const QString& file : fileNames_->copy())
        deleteSource(file);
    fixTab_->clearFiles(fileNames_);
    letGoOfList(); // last: from now on another may be queued
}

} // namespace zolt
