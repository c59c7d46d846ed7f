#include "checksum/Fingerprint.h"

#include "engine/NSTaskWrapperSync.h"
#include "platform/desktop/ToolsDirectory.h"

namespace zolt {

QString flacFingerprint(const QString& path)
{
    auto metaflac = NSTaskWrapperSync::initWithLaunchPathArguments(toolPath(QStringLiteral("metaflac")),
                                                                   {QStringLiteral("--show-md5"), path});
    const QString output = textOrEmpty(metaflac.runTask());
    return output.contains(metaflacFailure) ? output : path::lastComponent(path) + u':' + output;
}

} // namespace zolt
