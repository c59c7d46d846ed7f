#include "platform/desktop/Module.h"

#include "platform/Log.h"
#include "platform/desktop/ToolsDirectory.h"

#include <QDir>
#include <QFileInfo>

#include <dlfcn.h>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QString modulePath(const QString& name, const QString& builtFolder)
{
    const QString installed =
        QDir::cleanPath(runningProgramDirectory() + QStringLiteral("/../" ZOLT_MODULE_FOLDER "/") + name);
    return QFileInfo(installed).isFile() ? installed : builtFolder + u'/' + name;
}

} // namespace

void* moduleEntry(const QString& name, const QString& builtFolder, const char* entry)
{
    void* const module = dlopen(QFile::encodeName(modulePath(name, builtFolder)).constData(), RTLD_NOW | RTLD_LOCAL);
    void* const found = module ? dlsym(module, entry) : nullptr;
    if (!found) qCWarning(platformLog, "a part of the program can't be opened: %s", dlerror());
    return found;
}

} // namespace zolt
