#include "checksum/VerifyST5Task.h"

#include "checksum/ChecksumList.h"
#include "checksum/ST5.h"
#include "platform/files/Files.h"
#include "platform/text/Scanner.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// What a piece says of the file: a warning, or the hash with its separator; the last one where there are several.
OptionalText kept(const QString& piece)
{
    OptionalText text;
    for (const QString& line : splitIntoLines(piece)) {
        const qsizetype warning = line.indexOf(" warning: "_L1);
        if (warning >= 0) text = line.mid(warning);
        if (!line.contains(st5Separator)) continue;
        QString hash;
        Scanner(line).scanUpTo(st5Separator, &hash);
        text = hash + st5Separator;
    }
    return text;
}

} // namespace

VerifyST5Task::VerifyST5Task() : VerifyListTask({u"Verifying ST5 file"_s, u"Verify ST5"_s}) {}

std::shared_ptr<VerifyST5Task>
VerifyST5Task::initWithQueueForFileNameWithResults(ZOLTTaskQueue* queue, const QString& fileName,
                                                   const std::shared_ptr<ZOLTTaskResults>& results)
{
    std::shared_ptr<VerifyST5Task> task(new VerifyST5Task);
    task->setUpVerification(queue, fileName, results);
    return task;
}

void VerifyST5Task::processTaskOutput(const OptionalText& output)
{
    const QString piece = trimmed(textOrEmpty(output), CharacterSet::Backspace);
    double value = -1.0;
    if (piece.contains(u'%')) {
        value = doubleValue(pieceAt(splitAt(piece, u"%"_s), 0));
        topTextField()->setStringValue(u"Verifying: "_s + fixedSix(value) + u'%');
    }
    progressIndicator()->setDoubleValue(value);
    if (const OptionalText text = kept(piece)) rebuilt_ += *text + name_;
}

QString VerifyST5Task::st5(const QString& path)
{
    name_ = path::lastComponent(path);
    rebuilt_.clear();
    textField()->setStringValue(name_);
    const QString folder = path::deletingLastComponent(path);
    runTool({.tool = u"shntool"_s,
             .arguments = {u"hash"_s, path},
             .directory = isDirectory(folder) ? folder : QString(), // no tool starts in one that is not there
             .stopAt = ToolCall::StopAt::Nothing,
             .afterwards = ToolCall::Afterwards::WaitAndTerminate});
    return rebuilt_;
}

QString VerifyST5Task::resultOf(const QString& entry)
{
    const QString name = pieceAt(splitAt(entry, st5Separator), 1);
    const QString last = path::lastComponent(name);
    const QString rebuilt =
        trimmed(st5(checksumList::besideList(fileName(), name)), CharacterSet::WhiteSpaceAndNewlines);
    if (rebuilt.contains("warning"_L1)) return last + u" : "_s + rebuilt + u'\n';
    return last + (rebuilt == entry ? u" : OK\n"_s : u" : did not match shntool md5 file\n"_s);
}

void VerifyST5Task::doCreateST5()
{
    QString found;
    for (const QString& line : checksumList::lines(fileName())) {
        const QString entry = trimmed(line, CharacterSet::WhiteSpaceAndNewlines);
        if (!entry.isEmpty() && !entry.startsWith(u';')) found += resultOf(entry);
    }
    report(found);
}

} // namespace zolt
