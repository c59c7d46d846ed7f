#include "tags/OptimizedReplacement.h"

#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "platform/text/Text.h"
#include "shell/Util.h"
#include "tags/Log.h"
#include "tags/mp4/Mp4Optimizer.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zolt {
namespace {

// "@%" stands where the path was meant to be, but nothing fills it in.
constexpr QLatin1StringView notOptimized("unable to optimize @% file");
constexpr QLatin1StringView notDeleted("unable to delete file @%");
constexpr QLatin1StringView lost("file @% was lost");

[[noreturn]] void fail(QLatin1StringView reason, const QString& path)
{
    qCWarning(tagsLog, "%s: %s", qUtf8Printable(path), reason.data());
    throw PlatformException(u"Exception"_s, reason);
}

/// A move counts only when the folder that shows it is on the disk.
void flushFolder(const QString& folder)
{
    const int descriptor = ::open(bytesOfName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    fsync(descriptor);
    ::close(descriptor);
}

void writeToTemporary(const Mp4Document& document, const QString& temporary, const QString& path)
{
    try {
        writeOptimized(document, temporary);
    } catch (const Mp4Error& fault) {
        qCWarning(tagsLog, "%s: %s", qUtf8Printable(path), fault.what());
        removeItem(temporary);
        fail(notOptimized, path);
    }
}

void replaceThroughTemporary(const Mp4Document& document, const QString& path)
{
    const QString folder = path::deletingLastComponent(path);
    const QString temporary = Util::generateTempFileNameExtension(folder, path::extension(path));
    writeToTemporary(document, temporary, path);
    replaceFile(temporary, path);
    flushFolder(folder);
}

} // namespace

void replaceWithOptimized(Mp4Document& document, const QString& path)
{
    try {
        const QString file = realPath(path);
        if (file.isEmpty()) fail(notOptimized, path); // removed by someone else meanwhile
        replaceThroughTemporary(document, file);
    } catch (...) {
        // The tags are written all the same; what cannot be stored leaves the file as it was.
        guarded("tags without optimising", [&] { document.storeIndexInPlace(); });
        throw;
    }
}

void replaceFile(const QString& temporary, const QString& path)
{
    if (std::rename(bytesOfName(temporary).constData(), bytesOfName(path).constData()) == 0) return;
    // Only what is left of the old file tells whether anything can be lost with the new one.
    if (!exists(path)) fail(lost, path);
    removeItem(temporary);
    fail(notDeleted, path);
}

} // namespace zolt
