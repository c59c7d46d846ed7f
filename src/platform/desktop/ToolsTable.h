// What the program knows of the tools that it runs: tools/tools.txt, compiled in. Any thread.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace zolt {

struct ToolRow
{
    QString name;         ///< in the tools directory
    QString package;      ///< the Debian package that brings it; empty if there is none
    QString program;      ///< what the package calls it; empty where a companion or nothing stands for it
    QStringList question; ///< the arguments by which it tells its options; empty where nobody asks
    QString option;       ///< one that it must tell then
    QString advice;       ///< a sentence for the user about a missing one; empty for the usual
};

/// In the order of the file.
const std::vector<ToolRow>& toolRows();

/// The row of that name; none for a tool that is not in the file.
const ToolRow* toolRow(const QString& name);

} // namespace zolt
