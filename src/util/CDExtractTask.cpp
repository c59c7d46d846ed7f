#include "util/CDExtractTask.h"

#include "platform/Product.h"
#include "platform/files/Files.h"
#include "regex/RegularExpressions.h"
#include "util/DiscTracks.h"

namespace zolt {

using namespace Qt::StringLiterals;

std::shared_ptr<CDExtractTask> CDExtractTask::initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                        const QString& launchPath,
                                                                                        const QStringList& arguments)
{
    std::shared_ptr<CDExtractTask> task(new CDExtractTask);
    task->setUpAsyncTask(queue, launchPath, arguments);
    return task;
}

void CDExtractTask::setFileNames(const QStringList& files)
{
    currentFileIndex_ = 0;
    fileNames_ = reNumberCdTracks(files);
}

QString CDExtractTask::inDirectory(const QString& name) const
{
    return path::appendingComponent(directory(), name);
}

void CDExtractTask::showStart()
{
    // The tool asks a server for the titles first, which may take its time or be gone for good.
    topTextField()->setStringValue(u"Waiting for the drive and the title server"_s);
}

bool CDExtractTask::isEndOfTrack(const QString& output)
{
    return stringByMatching(output, u"[0-9]+ rderr, [0-9]+ skip, [0-9]+ atom"_s).has_value();
}

QString CDExtractTask::stripPercent(const QString& output)
{
    const QString stripped = stringByReplacingOccurrencesOfRegexWithString(output, u"[0-9]+%$"_s, u""_s);
    return trimmed(stripped, CharacterSet::Newlines);
}

QStringList CDExtractTask::reNumberCdTracks(const QStringList& paths)
{
    return trackPathsInOrder(paths);
}

void CDExtractTask::processTaskOutput(const OptionalText& output)
{
    if (currentFileIndex_ < fileNames_.size())
        textField()->setStringValue(path::deletingExtension(path::lastComponent(fileNames_[currentFileIndex_])));
    if (!output) return;
    appendResults(stripPercent(*output));
    logOutput_ += *output;
    showProgress(*output);
    if (isEndOfTrack(*output) && currentFileIndex_ + 1 < fileNames_.size()) ++currentFileIndex_;
}

void CDExtractTask::showProgress(const QString& output)
{
    QString word;
    for (const QChar each : output + u' ') {
        if (!isInSet(each, CharacterSet::WhiteSpaceAndNewlines)) {
            word += each;
            continue;
        }
        if (word.contains(u'%')) {
            const QString number = word.section(u'%', 0, 0);
            progressIndicator()->setDoubleValue(doubleValue(number));
            topTextField()->setStringValue(u"Extracting CD Track: "_s + number + u'%');
        }
        word.clear();
    }
}

void CDExtractTask::cleanup()
{
    progressIndicator()->setIndeterminate(true);
    progressIndicator()->startAnimation();
    topTextField()->setStringValue(u"Renaming CD Tracks"_s);
    renameTracks();
    writeLog();
}

void CDExtractTask::renameTracks()
{
    const QStringList range = splitAt(trackString_, u"+"_s);
    const int first = intValue(pieceAt(range, 0)), last = intValue(pieceAt(range, 1));
    if (last <= first) return giveName(u"audio.wav"_s, 0);
    // Kept for one file of several tracks too, where none of these names is there.
    for (int track = first; track <= last; ++track)
        giveName(u"audio_%1.wav"_s.arg(track, 2, 10, QChar(u'0')), track - first);
}

void CDExtractTask::giveName(const QString& toolFile, qsizetype index)
{
    const QString name = path::deletingExtension(path::lastComponent(pieceAt(fileNames_, index)));
    moveItem(inDirectory(toolFile), inDirectory(path::appendingExtension(name, u"wav"_s)));
}

void CDExtractTask::writeLog()
{
    const QString version = u"%1 (build %2)"_s.arg(QLatin1String(product::version), QLatin1String(product::build));
    const qsizetype start = std::max<qsizetype>(logOutput_.indexOf(u"cdda2wav:"), 0);
    textField()->setStringValue(u"Writing log file"_s);
    topTextField()->setStringValue(QString());
    writeTextAtomically(inDirectory(discName_ + u".log.txt"_s), u"Zolt "_s + version + u'\n' + logOutput_.mid(start));
}

} // namespace zolt
