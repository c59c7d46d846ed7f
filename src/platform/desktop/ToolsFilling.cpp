#include "platform/desktop/ToolsFilling.h"

#include "platform/desktop/ToolsDirectory.h"
#include "platform/desktop/ToolsTable.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace zolt {

namespace {

/// Tells a later build that the link is not a person's own.
void noteAsPlaced(const QString& name, const QString& target)
{
    QFile notes(toolPath(QStringLiteral(".placed")));
    if (notes.open(QIODevice::Append)) notes.write(QFile::encodeName(name + u'\t' + target + u'\n'));
}

bool place(const QString& name, const QString& target)
{
    if (!QDir().mkpath(toolsDirectory()) || !QFile::link(target, toolPath(name))) return false;
    noteAsPlaced(name, target);
    return true;
}

} // namespace

ToolsFilling fillToolsDirectory(const QStringList& searched)
{
    ToolsFilling filling;
    for (const ToolRow& row : toolRows()) {
        const QFileInfo link(toolPath(row.name));
        if (row.program.isEmpty() || link.exists() || link.isSymLink()) continue;
        const QString program = QStandardPaths::findExecutable(row.program, searched);
        if (program.isEmpty()) continue;
        (place(row.name, program) ? filling.placed : filling.unplaced) += row.name;
    }
    return filling;
}

} // namespace zolt
