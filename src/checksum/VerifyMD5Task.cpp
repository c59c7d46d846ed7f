#include "checksum/VerifyMD5Task.h"

#include "checksum/ChecksumList.h"
#include "checksum/MD5Helper.h"
#include "platform/files/Files.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// Judged before any trimming: a line of blanks counts as an entry.
bool isEntry(const QString& line)
{
    return !line.isEmpty() && !line.startsWith(u'#') && !line.startsWith(u';');
}

QString trimmedText(const QString& text)
{
    return trimmed(text, CharacterSet::WhiteSpaceAndNewlines);
}

} // namespace

VerifyMD5Task::VerifyMD5Task() : VerifyListTask({u"Verifying MD5 file"_s, u"Verify MD5"_s}) {}

std::shared_ptr<VerifyMD5Task>
VerifyMD5Task::initWithQueueForFileNameWithResults(ZOLTTaskQueue* queue, const QString& fileName,
                                                   const std::shared_ptr<ZOLTTaskResults>& results)
{
    std::shared_ptr<VerifyMD5Task> task(new VerifyMD5Task);
    task->setUpVerification(queue, fileName, results);
    return task;
}

QString VerifyMD5Task::resultOf(const QString& line) const
{
    const QString entry = trimmedText(line);
    const QStringList pieces = splitAt(entry, u" *"_s);
    if (pieces.size() == 1) return entry + u" : Invalid checksum format\n"_s;
    // Kept: a name that holds " *" itself ends there.
    topTextField()->setStringValue(u"Verifying "_s + pieces[1]);
    const QString name = trimmedText(pieces[1]);
    const QString file = checksumList::besideList(fileName(), name);
    const bool matches = MD5Helper::getMD5FromFile(file) == trimmedText(pieces[0]);
    const QString result = path::lastComponent(name) + (matches ? u" : OK"_s : u" : FAILED"_s);
    if (!exists(file)) noteMissing(result);
    return result + u'\n';
}

void VerifyMD5Task::doCreateMD5()
{
    QStringList entries = checksumList::lines(fileName());
    entries.removeIf([](const QString& line) { return !isEntry(line); });
    QString found;
    for (qsizetype index = 0; index < entries.size(); ++index) {
        if (cancelled()) return report(u"Canceled\n"_s);
        found += resultOf(entries[index]);
        showProgress(index + 1, entries.size());
    }
    report(found);
}

} // namespace zolt
