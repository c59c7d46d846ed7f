#include "checksum/VerifyFFPTask.h"

#include "checksum/ChecksumList.h"
#include "checksum/ConsoleTail.h"
#include "checksum/Fingerprint.h"
#include "engine/ConsoleGrammar.h"

namespace zolt {

using namespace Qt::StringLiterals;

VerifyFFPTask::VerifyFFPTask() : VerifyListTask({u"Verifying FFP"_s, u"Verify FFP"_s}) {}

std::shared_ptr<VerifyFFPTask>
VerifyFFPTask::initWithQueueForFileNameWithResults(ZOLTTaskQueue* queue, const QString& fileName,
                                                   const std::shared_ptr<ZOLTTaskResults>& results)
{
    std::shared_ptr<VerifyFFPTask> task(new VerifyFFPTask);
    task->setUpVerification(queue, fileName, results);
    return task;
}

QString VerifyFFPTask::fingerprint(const QString& path)
{
    return flacFingerprint(path);
}

VerifyFFPTask::Entry VerifyFFPTask::entryOf(const QString& line)
{
    const QStringList pieces = splitAt(line, u":"_s);
    return {.name = trimmed(pieceAt(pieces, 0), CharacterSet::WhiteSpace),
            .digest = trimmed(pieceAt(pieces, 1), CharacterSet::WhiteSpace)};
}

QString VerifyFFPTask::resultOf(const Entry& entry, QStringList& matches) const
{
    const auto& [name, digest] = entry;
    const QString file = checksumList::besideList(fileName(), name);
    const QString found = trimmed(fingerprint(file), CharacterSet::WhiteSpaceAndNewlines);
    if (found.contains(metaflacFailure)) return found + u" : "_s + name + u'\n';
    if (found != name + u':' + digest) return path::lastComponent(name) + u" : did not match fingerprint file\n"_s;
    matches += file;
    return path::lastComponent(name) + u" : OK\n"_s;
}

std::optional<QStringList> VerifyFFPTask::doVerifyFPP()
{
    const OptionalText list = checksumList::text(fileName());
    if (textOrEmpty(list).isEmpty()) {
        setError(true);
        return std::nullopt;
    }
    const QStringList lines = splitIntoLines(*list);
    QString found;
    QStringList matches;
    qsizetype entries = 0;
    for (const QString& line : lines) {
        const QString text = trimmed(line, CharacterSet::WhiteSpaceAndNewlines);
        if (text.isEmpty() || text.startsWith(u';')) continue;
        const Entry entry = entryOf(text);
        topTextField()->setStringValue(u"Verifying "_s + entry.name);
        showProgress(++entries, lines.size()); // kept: counted against all lines, so the bar may end short
        found += resultOf(entry, matches);
    }
    matches.sort();
    report(found);
    return matches;
}

QString VerifyFFPTask::processFlacFileOutputForFile(const OptionalText& output, const QString& name) const
{
    const ConsoleReading reading = ConsoleGrammar::flacTest.read(output);
    if (reading.digits) {
        progressIndicator()->setDoubleValue(reading.value);
        topTextField()->setStringValue(u"Verifying "_s + name + u": "_s + fixedSix(reading.value) + u'%');
    }
    return reading.text;
}

void VerifyFFPTask::verifyFlacFilesSync(const QStringList& files)
{
    for (const QString& file : files) {
        topTextField()->setStringValue(u"Verify FLAC File"_s);
        QString console;
        const auto gather = [&, name = path::lastComponent(file)](const OptionalText& piece) {
            console += processFlacFileOutputForFile(piece, name) + u'\n';
        };
        runTool({.tool = u"flac"_s,
                 .arguments = {u"-t"_s, file},
                 .parser = gather,
                 .stopAt = ToolCall::StopAt::Nothing,
                 .afterwards = ToolCall::Afterwards::WaitAndTerminate});
        report(flacClosingWords(console));
    }
}

void VerifyFFPTask::verifyList()
{
    const auto matches = doVerifyFPP();
    if (!matches || matches->isEmpty()) return;
    report(u"\nVerify Flac Files in "_s + path::lastComponent(fileName()) + u'\n');
    verifyFlacFilesSync(*matches);
}

} // namespace zolt
