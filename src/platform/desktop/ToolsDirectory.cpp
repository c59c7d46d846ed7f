#include "platform/desktop/ToolsDirectory.h"

#include "platform/desktop/ToolOptions.h"
#include "platform/desktop/ToolsTable.h"
#include "platform/text/Text.h"

#include <QDir>
#include <QFileInfo>

#include <optional>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

bool isThere(const QString& path)
{
    const QFileInfo tool(path);
    return tool.isFile() && tool.isExecutable();
}

/// What is wrong with the tool; nothing if it can be used.
std::optional<MissingTool> lookUp(const QString& name)
{
    if (!isThere(toolPath(name))) return MissingTool{name, packageOfTool(name)};
    const ToolRow* const row = toolRow(name);
    if (!row || row->option.isEmpty() || knowsOption(toolPath(name), row->question, row->option)) return std::nullopt;
    return MissingTool{name, packageOfTool(name), row->option};
}

QString whatIsMissing(const MissingTool& tool)
{
    if (tool.option.isEmpty()) return u"The tool \"%1\" is missing from %2."_s.arg(tool.name, toolsDirectory());
    return u"The tool \"%1\" in %2 does not know the option %3, which is needed."_s.arg(tool.name, toolsDirectory(),
                                                                                        tool.option);
}

} // namespace

QString runningProgramDirectory()
{
    return path::deletingLastComponent(QFileInfo(u"/proc/self/exe"_s).symLinkTarget());
}

QString toolsDirectory()
{
    const QString chosen = qEnvironmentVariable("ZOLT_TOOLS");
    if (!chosen.isEmpty()) return QDir::cleanPath(QDir(chosen).absolutePath());
    // Looked up once: every task asks for it, ten thousand of them in one go.
    static const QString own = toolsDirectoryBeside(runningProgramDirectory());
    return own;
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
    const ToolRow* const row = toolRow(name);
    return row ? row->package : QString();
}

QStringList knownTools()
{
    QStringList names;
    for (const ToolRow& row : toolRows())
        names.append(row.name);
    names.sort(Qt::CaseInsensitive);
    return names;
}

QList<MissingTool> missingTools(const QStringList& names)
{
    QList<MissingTool> missing;
    for (const QString& name : names) {
        if (const auto fault = lookUp(name)) missing.append(*fault);
    }
    return missing;
}

QString missingToolMessage(const MissingTool& tool)
{
    const ToolRow* const row = toolRow(tool.name);
    if (row && !tool.option.isEmpty() && !row->advice.isEmpty()) return whatIsMissing(tool) + u' ' + row->advice;
    if (!tool.package.isEmpty())
        return whatIsMissing(tool) + u" Install the Debian package \"%1\", which brings it."_s.arg(tool.package);
    return whatIsMissing(tool) + u" Debian has no package for it: put a program of that name there."_s;
}

} // namespace zolt
