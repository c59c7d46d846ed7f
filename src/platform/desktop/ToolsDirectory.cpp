#include "platform/desktop/ToolsDirectory.h"

#include "platform/text/Text.h"

#include <QDir>
#include <QFileInfo>

#include <map>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// Tool to Debian package; an empty package means that Debian has none.
const std::map<QString, QString>& packages()
{
    static const std::map<QString, QString> table{
        {u"AtomicParsley"_s, u"atomicparsley"_s},
        {u"cdda2wav"_s, u"icedax"_s},
        {u"dvda"_s, {}},
        {u"flac"_s, u"flac"_s},
        {u"lame"_s, u"lame"_s},
        {u"mac"_s, {}},
        {u"metaflac"_s, u"flac"_s},
        {u"mkisofs"_s, u"genisoimage"_s},
        {u"shntool"_s, u"shntool"_s},
        {u"shorten"_s, {}},
        {u"sox"_s, u"sox"_s},
        {u"ttaenc"_s, {}},
        {u"wavpack"_s, u"wavpack"_s},
        {u"wvunpack"_s, u"wavpack"_s},
    };
    return table;
}

QString runningProgramDirectory()
{
    return path::deletingLastComponent(QFileInfo(u"/proc/self/exe"_s).symLinkTarget());
}

bool isInstalled(const QString& name)
{
    const QFileInfo tool(toolPath(name));
    return tool.isFile() && tool.isExecutable();
}

} // namespace

QString toolsDirectory()
{
    const QString chosen = qEnvironmentVariable("ZOLT_TOOLS");
    if (!chosen.isEmpty()) return QDir::cleanPath(QDir(chosen).absolutePath());
    return toolsDirectoryBeside(runningProgramDirectory());
}

QString toolsDirectoryBeside(const QString& programDirectory)
{
    const QString installed = QDir::cleanPath(programDirectory + u"/../libexec/zolt/tools"_s);
    if (QFileInfo(installed).isDir()) return installed;
    return QStringLiteral(ZOLT_BUILD_TREE_TOOLS);
}

QString toolPath(const QString& name)
{
    return path::appendingComponent(toolsDirectory(), name);
}

QString packageOfTool(const QString& name)
{
    const auto found = packages().find(name);
    return found == packages().end() ? QString() : found->second;
}

QStringList knownTools()
{
    QStringList names;
    for (const auto& [name, package] : packages())
        names.append(name);
    names.sort(Qt::CaseInsensitive);
    return names;
}

QList<MissingTool> missingTools(const QStringList& names)
{
    QList<MissingTool> missing;
    for (const QString& name : names) {
        if (!isInstalled(name)) missing.append({name, packageOfTool(name)});
    }
    return missing;
}

QString missingToolMessage(const MissingTool& tool)
{
    const QString where = u"The tool \"%1\" is missing from %2."_s.arg(tool.name, toolsDirectory());
    if (!tool.package.isEmpty()) {
        return where + u" Install the Debian package \"%1\", which brings it."_s.arg(tool.package);
    }
    return where + u" Debian has no package for it: put a program of that name there."_s;
}

} // namespace zolt
