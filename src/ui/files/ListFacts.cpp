#include "ui/files/ListFacts.h"

#include "platform/files/FileNames.h"
#include "platform/text/Text.h"
#include "shell/Wording.h"

#include <QFile>
#include <QLocale>
#include <QSet>

#include <sys/stat.h>

namespace zolt {

using namespace Qt::StringLiterals;

ListFacts gatherListFacts(const QStringList& files, const std::atomic<bool>& stop)
{
    ListFacts facts{.files = files.size(), .folders = 0, .bytes = 0};
    QSet<QString> folders;
    for (const QString& file : files) {
        if (stop) break;
        struct stat status = {};
        if (::stat(bytesOfName(file).constData(), &status) == 0) facts.bytes += status.st_size;
        folders += path::deletingLastComponent(file);
    }
    facts.folders = folders.size();
    return facts;
}

QString listFactsText(const ListFacts& facts)
{
    if (facts.files == 0) return QString();
    QString text = counted(facts.files, u"file"_s) + u", "_s +
                   QLocale::c().formattedDataSize(facts.bytes, 1, QLocale::DataSizeSIFormat);
    if (facts.folders > 1) text += u", "_s + counted(facts.folders, u"folder"_s);
    return text;
}

bool liesInSeveralFolders(const QStringList& files)
{
    if (files.isEmpty()) return false;
    const qsizetype length = files.first().lastIndexOf(u'/');
    const QStringView folder = QStringView(files.first()).first(std::max<qsizetype>(length, 0));
    return std::any_of(files.begin(), files.end(), [&](const QString& file) {
        return file.lastIndexOf(u'/') != length || !file.startsWith(folder);
    });
}

} // namespace zolt
