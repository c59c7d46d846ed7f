#include "platform/audio/Codecs.h"

#include "platform/Log.h"
#include "platform/desktop/ToolsDirectory.h"

#include <QDir>
#include <QFileInfo>

#include <dlfcn.h>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

using Entry = const Codecs* (*)();

/// Beside the installed program, else in the build tree.
QString modulePath()
{
    const QString installed =
        QDir::cleanPath(runningProgramDirectory() + u"/../"_s + QStringLiteral(ZOLT_MODULE_INSTALLED));
    return QFileInfo(installed).isFile() ? installed : QStringLiteral(ZOLT_MODULE_BUILT);
}

const Codecs* openModule()
{
    void* module = dlopen(QFile::encodeName(modulePath()).constData(), RTLD_NOW | RTLD_LOCAL);
    const auto entry = module ? reinterpret_cast<Entry>(dlsym(module, "zoltCodecs")) : nullptr;
    if (entry) return entry();
    qCWarning(platformLog, "compressed audio can't be read or written: %s", dlerror());
    return nullptr;
}

} // namespace

const Codecs* codecs()
{
    static const Codecs* const opened = openModule();
    return opened;
}

} // namespace zolt
