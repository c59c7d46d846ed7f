#include "platform/desktop/SettingsFile.h"

#include <QFile>
#include <QSettings>

namespace zolt::settingsFile {

using namespace Qt::StringLiterals;

namespace {

constexpr int ownVersion = 1;
constexpr int mostCopies = 99;

enum class Line { Kept, Remark, Damaged };

/// Whether the file has a line of the kind. It is read anew: what has been read of a file once says nothing of it now.
bool holds(const QString& path, Line wanted)
{
    QFile text(path);
    if (!text.open(QIODevice::ReadOnly)) return false;
    while (!text.atEnd()) {
        const QByteArray line = text.readLine().trimmed();
        const bool isValue = line.indexOf('=') > 0, isSection = line.startsWith('[') && line.endsWith(']');
        const Line kind = line.startsWith(';')                     ? Line::Remark
                          : line.isEmpty() || isValue || isSection ? Line::Kept
                                                                   : Line::Damaged;
        if (kind == wanted) return true;
    }
    return false;
}

bool keepCopy(const QString& path)
{
    for (int number = 1; number <= mostCopies; ++number) {
        const QString copy = u"%1.kept%2"_s.arg(path).arg(number);
        if (!QFile::exists(copy)) return QFile::copy(path, copy);
    }
    return false;
}

bool write(QSettings& file, const QString& key, const std::optional<QVariant>& value)
{
    if (value) {
        file.setValue(key, *value);
    } else {
        file.remove(key);
    }
    file.sync();
    return file.status() != QSettings::AccessError && !holds(file.fileName(), Line::Damaged);
}

} // namespace

QString complaintAbout(const QSettings& file)
{
    const QString path = file.fileName();
    if (file.status() == QSettings::AccessError)
        return u"The settings in %1 could not be read. The file is left alone; see that it can be read."_s.arg(path);
    if (holds(path, Line::Damaged))
        return u"The settings in %1 are damaged. What can be read of them holds; a copy of the file as it is will be "
               u"kept "
               "beside it when a setting is saved."_s.arg(path);
    if (file.value(versionKey).toInt() <= ownVersion) return QString();
    return u"The settings in %1 come from a later version. What this one does not know of them stays as it is."_s.arg(
        path);
}

QString save(const QString& path, const QString& key, const std::optional<QVariant>& value)
{
    const bool loses = holds(path, Line::Damaged) || holds(path, Line::Remark);
    QSettings file(path, QSettings::IniFormat);
    if ((!loses || keepCopy(path)) && write(file, key, value)) return QString();
    return u"The settings could not be saved to %1 - see that the file and its directory can be written."_s.arg(path);
}

} // namespace zolt::settingsFile
