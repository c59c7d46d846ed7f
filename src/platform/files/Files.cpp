#include "platform/files/Files.h"

#include "platform/files/FileNames.h"
#include "platform/files/ReplacingFile.h"
#include "platform/text/Text.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zolt {

namespace {

std::filesystem::path nativePath(const QString& path)
{
    return bytesOfName(path).toStdString();
}

/// Qt makes the trash in the user's data directory but not that directory itself, and where it finds neither it moves
/// the file into the working directory instead: so the trash is made here first.
bool userHasTrash()
{
    const QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    return data.mkpath(QStringLiteral("Trash"));
}

/// Gives the file a name that Qt finds. @return the path then; empty where that cannot be done
QString renamedForQt(const QString& path)
{
    const QString name = path::lastComponent(path);
    if (readableName(name) == name) return path;
    const QString readable = path::appendingComponent(path::deletingLastComponent(path), readableName(name));
    return !exists(readable) && renameItem(path, readable) ? readable : QString();
}

/// The type bits of what the path leads to; 0 where there is nothing.
mode_t kindOf(const QString& path)
{
    struct stat facts = {};
    return ::stat(bytesOfName(path).constData(), &facts) == 0 ? facts.st_mode & S_IFMT : 0;
}

QString currentFolder()
{
    const std::unique_ptr<char, decltype(&std::free)> folder(::getcwd(nullptr, 0), &std::free);
    return folder ? nameOfBytes(folder.get()) : QString();
}

} // namespace

bool writeTextAtomically(const QString& path, const QString& text)
{
    if (exists(path) && !isRegularFile(path)) return false; // a rename would put a file in a device's or pipe's place
    ReplacingFile file(exists(path) ? realPath(path) : path);
    return file.write(bytesOfName(text)) && file.commit();
}

bool moveToTrash(const QString& path)
{
    if (!userHasTrash()) return false;
    const QString found = renamedForQt(path);
    if (found.isEmpty()) return false;
    if (QFile::moveToTrash(found)) return true;
    if (found != path) renameItem(found, path);
    return false;
}

bool removeItem(const QString& path)
{
    std::error_code failure;
    return std::filesystem::remove(nativePath(path), failure);
}

bool removeTree(const QString& path)
{
    std::error_code failure;
    std::filesystem::remove_all(nativePath(path), failure);
    return !failure;
}

bool moveItem(const QString& path, const QString& newPath)
{
    const QByteArray from = bytesOfName(path), to = bytesOfName(newPath);
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    struct stat facts = {}; // a file system that cannot do it in one step
    return ::lstat(to.constData(), &facts) != 0 && renameItem(path, newPath);
}

QStringList directoryListing(const QString& path)
{
    QStringList names;
    std::error_code failure;
    std::filesystem::directory_iterator entry(nativePath(path), failure);
    for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
        names.append(nameOfBytes(entry->path().filename().c_str()));
    }
    return names;
}

QString absolutePath(const QString& path)
{
    const QString absolute = path.startsWith(u'/') ? path : currentFolder() + u'/' + path;
    return absolute.contains(QLatin1String("/..")) ? absolute : QDir::cleanPath(absolute);
}

bool isDirectory(const QString& path)
{
    return kindOf(path) == S_IFDIR;
}

bool makeDirectories(const QString& path)
{
    std::error_code fault;
    std::filesystem::create_directories(nativePath(path), fault);
    return isDirectory(path);
}

bool isRegularFile(const QString& path)
{
    return kindOf(path) == S_IFREG;
}

bool exists(const QString& path)
{
    return kindOf(path) != 0;
}

std::int64_t fileSize(const QString& path)
{
    struct stat facts = {};
    return ::stat(bytesOfName(path).constData(), &facts) == 0 ? facts.st_size : -1;
}

QString realPath(const QString& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(bytesOfName(path).constData(), nullptr),
                                                           &std::free);
    return real ? nameOfBytes(real.get()) : QString();
}

bool renameItem(const QString& path, const QString& newPath)
{
    return std::rename(bytesOfName(path).constData(), bytesOfName(newPath).constData()) == 0;
}

} // namespace zolt
