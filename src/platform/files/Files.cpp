#include "platform/files/Files.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>

namespace zolt {

namespace {

std::filesystem::path nativePath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

} // namespace

bool writeTextAtomically(const QString& path, const QString& text)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    file.write(text.toUtf8());
    return file.commit();
}

bool moveToTrash(const QString& path)
{
    return QFile::moveToTrash(path);
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

bool isDirectory(const QString& path)
{
    return QFileInfo(path).isDir();
}

} // namespace zolt
