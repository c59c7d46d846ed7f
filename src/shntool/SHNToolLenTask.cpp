#include "shntool/SHNToolLenTask.h"

#include "platform/errors/Exceptions.h"
#include "platform/text/Scanner.h"
#include "shell/Constants.h"
#include "shntool/SHNtoolOutputNamingFormatParser.h"
#include "shntool/TrackNumber.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// The first time on a line, with two digits of minutes; absent where none stands there.
OptionalText timeOn(const QString& line)
{
    Scanner scanner(line);
    QString time;
    scanner.scanUpToSet(CharacterSet::DecimalDigits);
    if (!scanner.scanUpToSet(CharacterSet::WhiteSpace, &time)) return std::nullopt;
    return time.indexOf(u':') == 1 ? u'0' + time : time;
}

} // namespace

std::shared_ptr<SHNToolLenTask> SHNToolLenTask::initWithQueueLaunchPathArgumentsLenType(ZOLTTaskQueue* queue,
                                                                                        const QString& launchPath,
                                                                                        const QStringList& arguments,
                                                                                        const QString& lenType)
{
    std::shared_ptr<SHNToolLenTask> task(new SHNToolLenTask);
    task->setUpAsyncTask(queue, launchPath, arguments);
    task->type_ = lenType;
    task->showTitle(u"Running shntool LEN"_s);
    return task;
}

std::shared_ptr<SHNToolLenTask>
SHNToolLenTask::initWithResultsQueueLaunchPathArgumentsLenType(const std::shared_ptr<ZOLTTaskResults>& results,
                                                               ZOLTTaskQueue* queue, const QString& launchPath,
                                                               const QStringList& arguments, const QString& lenType)
{
    const auto task = initWithQueueLaunchPathArgumentsLenType(queue, launchPath, arguments, lenType);
    task->setResults(results);
    return task;
}

void SHNToolLenTask::showStart()
{
    progressIndicator()->setIndeterminate(true);
    progressIndicator()->startAnimation();
    topTextField()->setStringValue(u"Running"_s);
}

void SHNToolLenTask::processTaskOutput(const OptionalText& output)
{
    appendText(output_, output);
}

void SHNToolLenTask::stopTask(Sender sender)
{
    const Hold hold(shared_from_this());
    try {
        appendReport();
    } catch (const PlatformException& fault) {
        return endAfterFault(fault.reason());
    }
    ZOLTAsyncNSTask::stopTask(sender);
}

void SHNToolLenTask::appendReport()
{
    const auto collector = results();
    if (!collector) return;
    if (type_ == Constants::NORMAL_LEN_OUTPUT) collector->appendResultsForTask(normalSHNLenOutput(), this);
    if (type_ == Constants::LEN_BY_FILESET || type_ == Constants::LEN_BY_DISC)
        collector->appendResultsForTask(lenByFileSetOutput(), this);
}

QString SHNToolLenTask::normalSHNLenOutput() const
{
    const QStringList lines = splitIntoLines(output_);
    QString report = lines.first();
    for (const QString& line : lines.sliced(1)) {
        const qsizetype slash = line.indexOf(u'/');
        report += u'\n' + (slash < 0 ? line : line.first(slash) + path::lastComponent(line.sliced(slash)));
    }
    return report;
}

QString SHNToolLenTask::trackName(const QString& line, qsizetype index) const
{
    if (names_ && index < names_->size()) return names_->at(index);
    return path::lastComponent(line.sliced(line.indexOf(u'/')));
}

SHNToolLenTask::Table SHNToolLenTask::table() const
{
    Table table;
    QString time;
    const QStringList lines = splitIntoLines(output_).sliced(1); // without the headings
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString& line = lines[i];
        time = timeOn(line).value_or(time);
        if (line.contains(u'/'))
            table.tracks.push_back({trackName(line, i), time});
        else if (!trimmed(line, CharacterSet::WhiteSpace).isEmpty())
            table.total = time;
    }
    return table;
}

QString SHNToolLenTask::trackLines(const std::vector<Track>& tracks) const
{
    const SHNtoolOutputNamingFormatParser parser;
    QString lines;
    qsizetype number = 0;
    for (const Track& track : tracks) {
        const QString shown = trackNumber(++number);
        if (names_) {
            const QString name = track.name.leftJustified(maxTrackNameLengh_, u' ', true);
            lines += parser.getFormattedLineWithNameTimeTrackNumber(name, track.time, shown);
        } else {
            lines += shown + u' ' + track.name + u' ' + track.time + u'\n';
        }
    }
    return lines;
}

QString SHNToolLenTask::lenByFileSetOutput()
{
    const Table read = table();
    ++maxTrackNameLengh_; // a blank behind the longest name
    const QString heading = discNumber_ ? u"Disc "_s + *discNumber_ + u"\n\n"_s : QString();
    const QString closing = discNumber_ ? u"\nDisc "_s + *discNumber_ + u" Total: "_s : u"\nTotal: "_s;
    return heading + trackLines(read.tracks) + closing +
           SHNtoolOutputNamingFormatParser().getFormattedTotalLine(read.total) + u" \n\n"_s;
}

} // namespace zolt
