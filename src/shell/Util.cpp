#include "shell/Util.h"

#include "platform/desktop/UserDefaults.h"
#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "shell/TemporaryFileSteps.h"

#include <QFile>

namespace zolt {

namespace {

/// The longest path that is made, without the zero at its end. A longer one is cut, and then no file can be made of it.
constexpr qsizetype longestPath = 1023;

} // namespace

bool Util::deletesToTrash()
{
    return UserDefaults::standard().integerForKey(QStringLiteral("trashOrDelete")) != 0;
}

void Util::deleteFile(const QString& path)
{
    if (deletesToTrash()) {
        moveToTrash(path);
    } else {
        removeItem(path);
    }
}

QString Util::generateTempFileName2Extension(const OptionalText& directory, const OptionalText& extension)
{
    return temporaryFileTemplate(directory, extension);
}

QString Util::generateTempFileNameExtension(const OptionalText& directory, const OptionalText& extension)
{
    QByteArray path = bytesOfName(temporaryFileTemplate(directory, extension)).left(longestPath);
    const qsizetype suffixLength = bytesOfName(*extension).size() + 1; // the dot is part of it
    closeTemporaryFile(createTemporaryFile(path, int(suffixLength)));
    return nameOfBytes(path);
}

} // namespace zolt
