#include "util/DVDAuthorTask.h"

#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"
#include "util/Log.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QString fileMarker = u"[Zolt]  Processing "_s;
const QString numberEnd = u"::"_s;
const QString treeName = u"DVD-AUDIO"_s;

QString withoutBackspaces(const OptionalText& output)
{
    return trimmed(textOrEmpty(output), CharacterSet::Backspace);
}

} // namespace

DVDAuthorTask::DVDAuthorTask()
    : ZOLTThreadTask({.waits = ThreadEnd::Waits::No, .readsStatus = false, .drops = ThreadEnd::Drops::AheadOfRow})
{
}

std::shared_ptr<DVDAuthorTask> DVDAuthorTask::initTaskWithQueueFileNamesOutputPath(ZOLTTaskQueue* queue,
                                                                                   const QStringList& fileNames,
                                                                                   const QString& outputPath)
{
    std::shared_ptr<DVDAuthorTask> task(new DVDAuthorTask);
    task->setUpThreadTask(queue);
    task->fileNames_ = fileNames;
    task->outputPath_ = outputPath;
    task->showTitle(u"Authoring AUDIO_TS directory"_s);
    return task;
}

QString DVDAuthorTask::inOutput(const QString& name) const
{
    return path::appendingComponent(outputPath_, name);
}

void DVDAuthorTask::doStartTask()
{
    beginRow();
    topTextField()->setStringValue(u"Authoring AUDIO_TS directory"_s);
    authorDisc();
    textField()->setStringValue(u"Making .ISO Image"_s);
    makeImage();
    if (!error()) removeTree(inOutput(treeName));
    stopTask(nullptr);
}

void DVDAuthorTask::authorDisc()
{
    runTool({.tool = u"dvda"_s,
             .arguments = QStringList{u"-l"_s, inOutput(u"log.txt"_s), u"-P0"_s, u"-S"_s, u"-f"_s, u"-o"_s,
                                      inOutput(treeName), u"-g"_s} +
                          fileNames_,
             .parser = [this](const OptionalText& output) { processDVDATaskOutput(output); },
             .stopAt = ToolCall::StopAt::Nothing});
}

void DVDAuthorTask::makeImage()
{
    runTool({.tool = u"mkisofs"_s,
             .arguments = {u"-o"_s, inOutput(QString::fromUtf16(imageName)), u"-dvd-audio"_s, inOutput(treeName)},
             .parser = [this](const OptionalText& output) { processImageTaskOutput(output); },
             .stopAt = ToolCall::StopAt::Nothing});
}

void DVDAuthorTask::processDVDATaskOutput(const OptionalText& output)
{
    const QString text = withoutBackspaces(output);
    qCInfo(utilLog).noquote() << text;
    if (!text.contains(fileMarker)) return;
    try {
        showFile(substringFrom(text, fileMarker.size())); // kept: as if the marker stood at the start
    } catch (const PlatformException& fault) {
        qCWarning(utilLog).noquote() << "Error in dvda's text" << fault.reason();
    }
}

void DVDAuthorTask::showFile(const QString& rest)
{
    const int index = intValue(substringTo(rest, numberEnd.size()));
    const QString file = substringFrom(rest, numberEnd.size() + 1);
    topTextField()->setStringValue(u"Processing: "_s + path::lastComponent(file));
    if (!fileNames_.isEmpty()) progressIndicator()->setDoubleValue(double((index + 1) * 100 / fileNames_.size()));
}

void DVDAuthorTask::processImageTaskOutput(const OptionalText& output)
{
    const QString text = withoutBackspaces(output);
    const qsizetype end = text.indexOf(u"% done,");
    if (end < 0) return;
    const double percent = doubleValue(QStringView(text).first(end));
    topTextField()->setStringValue(u"Making .ISO Image: "_s + fixedSix(percent) + u'%');
    progressIndicator()->setDoubleValue(percent);
}

} // namespace zolt
