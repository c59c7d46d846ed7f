// The command line of the window program.
#pragma once

#include "ui/bus/ApplicationBus.h"

#include <QString>
#include <QStringList>

namespace zolt {

struct CommandLine
{
    enum class Action { Run, Help, Version, Wrong };
    Action action = Action::Run;
    OpenRequest request;
    QString fault; ///< what is wrong, for Action::Wrong
};

/// Reads the arguments behind the program's name. Relative paths are taken from the working directory.
CommandLine readCommandLine(const QStringList& arguments);

QString helpText();
QString versionText();
/// What a start says that only brought the open window to the front.
QString handedOverText(const OpenRequest& request);

} // namespace zolt
