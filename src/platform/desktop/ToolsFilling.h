// Filling the tools directory from within the program.
#pragma once

#include <QStringList>

namespace zolt {

struct ToolsFilling
{
    QStringList placed;   ///< names that have a link now and had none before
    QStringList unplaced; ///< names whose program is there, but the directory cannot be written to
};

/// Places a link for each packaged tool that has been installed meanwhile, as the build does. What stands in the
/// directory stays. Any thread.
/// @param searched  the folders in which programs are looked for
ToolsFilling fillToolsDirectory(const QStringList& searched = {QStringLiteral("/usr/local/bin"),
                                                               QStringLiteral("/usr/bin"), QStringLiteral("/bin")});

} // namespace zolt
