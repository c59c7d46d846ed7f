#include "platform/files/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <filesystem>

namespace zolt {

namespace {

std::filesystem::path nativePath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

/// Qt makes the trash in the user's data directory but not that directory itself, and where it finds neither it moves
/// the file into the working directory instead: so the trash is made here first.
bool userHasTrash()
{
    const QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    return data.mkpath(QStringLiteral("Trash"));
}

} // namespace

bool writeTextAtomically(const QString& path, const QString& text)
{
    const QFileInfo old(path);
    if (old.exists() && !old.isFile()) return false; // a rename would put a file in a device's or pipe's place
    QSaveFile file(path);
    // Unbuffered and counted: Qt takes a write that a full disk cuts short for a success.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return false;
    const QByteArray bytes = text.toUtf8();
    if (file.write(bytes) != bytes.size()) file.cancelWriting();
    return file.commit();
}

bool moveToTrash(const QString& path)
{
    return userHasTrash() && QFile::moveToTrash(path);
}

bool removeItem(const QString& path)
{
    std::error_code failure;
    return std::filesystem::remove(nativePath(path), failure);
}

QStringList directoryListing(const QString& path)
{
    QStringList names;
    std::error_code failure;
    std::filesystem::directory_iterator entry(nativePath(path), failure);
    for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
        names.append(QFile::decodeName(entry->path().filename().c_str()));
    }
    return names;
}

QString absolutePath(const QString& path)
{
    const QString absolute = QDir::current().absoluteFilePath(path);
    return absolute.contains(QLatin1String("/..")) ? absolute : QDir::cleanPath(absolute);
}

bool isDirectory(const QString& path)
{
    return QFileInfo(path).isDir();
}

} // namespace zolt
