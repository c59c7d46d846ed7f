#include "util/DiscVolumes.h"

#include "platform/files/FileNames.h"

#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QString devices = u"/dev/"_s;

/// A field of the table: bytes that would end it are written as a backslash and three octal digits.
QString unescaped(const QByteArray& field)
{
    QByteArray bytes = field;
    for (qsizetype at = bytes.indexOf('\\'); at >= 0; at = bytes.indexOf('\\', at + 1)) {
        bool isNumber = false;
        const QByteArray digits = bytes.mid(at + 1, 3);
        const char byte = char(digits.toInt(&isNumber, 8));
        if (isNumber && digits.size() == 3) bytes.replace(at, 4, QByteArray(1, byte));
    }
    return nameOfBytes(bytes);
}

QString discsFolder()
{
    return path::appendingComponent(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation),
                                    u"zolt/discs"_s);
}

OptionalText driveOfOwnFolder(const QString& path)
{
    static const QRegularExpression form(u"^Audio CD \\((\\w+)\\)$"_s);
    if (path::deletingLastComponent(path) != discsFolder()) return std::nullopt;
    const auto match = form.match(path::lastComponent(path));
    return match.hasMatch() ? OptionalText(match.captured(1)) : std::nullopt;
}

} // namespace

QString mountTable()
{
    QFile table(u"/proc/self/mounts"_s);
    return table.open(QIODevice::ReadOnly) ? nameOfBytes(table.readAll()) : QString();
}

OptionalText discOfVolume(const QString& path, const QString& mountTable)
{
    if (const auto own = driveOfOwnFolder(path)) return own;
    for (const QByteArray& line : bytesOfName(mountTable).split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() < 2 || unescaped(fields[1]) != path) continue;
        const QString device = unescaped(fields[0]);
        if (device.startsWith(devices)) return device.mid(devices.size());
    }
    return std::nullopt;
}

QString folderOfDisc(const QString& drive)
{
    return path::appendingComponent(discsFolder(), u"Audio CD (%1)"_s.arg(drive));
}

bool isInOwnDiscFolder(const QString& file)
{
    return driveOfOwnFolder(path::deletingLastComponent(file)).has_value();
}

bool isInVirtualDiscFolder(const QString& file)
{
    return file.contains(u"/cdda:host=");
}

} // namespace zolt
