// The one directory that holds all external tools, and which of them are missing there. Any thread.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace zolt {

/// A tool that a command needs and that the tools directory does not hold.
struct MissingTool
{
    QString name;
    QString package;     ///< the Debian package that brings it; empty if there is none
    QString option = {}; ///< set for one that is there and does not know this option
};

/// The folder that the running program lies in.
QString runningProgramDirectory();

/// The directory of the tools, with no slash at its end: the environment's ZOLT_TOOLS if it is set and not empty,
/// else ../libexec/zolt/tools beside the running program, else "tools" in the tree that the program was built in. Which
/// of the latter two is found at the first call.
QString toolsDirectory();

/// As toolsDirectory() without the environment, for a program that lies in `programDirectory`.
QString toolsDirectoryBeside(const QString& programDirectory);

/// The path of a tool in the tools directory, whether it is there or not.
QString toolPath(const QString& name);

/// The Debian package that brings the tool; empty if there is none or the tool is not known.
QString packageOfTool(const QString& name);

/// The names of all tools that the program knows, in alphabetical order.
QStringList knownTools();

/// Those of the tools that are not executable files in the tools directory, or lack an option that is needed, in the
/// order given. A tool that must know an option is run once to ask it, so this may take a moment.
QList<MissingTool> missingTools(const QStringList& names);

/// A sentence for the user: which tool is missing where, and what to install or to do.
QString missingToolMessage(const MissingTool& tool);

} // namespace zolt
